#include "platform/linux/deleted_files.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "platform/block_count.h"
#include "platform/file_descriptor.h"
#include "platform/linux/btrfs.h"
#include "platform/linux/folder_names.h"
#include "platform/linux/pid_from.h"

namespace corvane {

namespace {

/// Decides which files are on the disk. The volumes of a btrfs file system have device numbers of their own, so on such
/// a disk every btrfs file counts.
class Disk {
public:
    explicit Disk(const std::string &home)
    {
        for (const char *folder : {"/", home.c_str()}) {
            struct statx facts {};
            if (::statx(AT_FDCWD, folder, AT_STATX_DONT_SYNC, STATX_TYPE, &facts) == 0)
                m_devices.insert(makedev(facts.stx_dev_major, facts.stx_dev_minor));
            m_isBtrfs = m_isBtrfs || isOnBtrfs(folder);
        }
    }

    [[nodiscard]] bool holds(int folder, const char *name, const struct statx &facts) const
    {
        if (m_devices.contains(makedev(facts.stx_dev_major, facts.stx_dev_minor)))
            return true;
        return m_isBtrfs && isOnBtrfs("/proc/self/fd/" + std::to_string(folder) + "/" + name);
    }

private:
    std::set<dev_t> m_devices;
    bool m_isBtrfs = false;
};

/// Whether the kernel marks an open file as deleted, which does not require accessing the file's disk. A path too long
/// to be reported counts as possibly deleted.
bool mayBeDeleted(int folder, const char *name)
{
    constexpr std::string_view mark = " (deleted)";
    std::array<char, 4'097> target{};
    const ssize_t length = ::readlinkat(folder, name, target.data(), target.size());
    return length < 0 || length == static_cast<ssize_t>(target.size()) ||
           std::string_view(target.data(), static_cast<std::size_t>(length)).ends_with(mark);
}

std::string programName(int process)
{
    std::array<char, 64> name{};
    const FileDescriptor file(::openat(process, "comm", O_RDONLY | O_CLOEXEC));
    const ssize_t length = file.isOpen() ? ::read(file.number(), name.data(), name.size()) : 0;
    std::string text(name.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    return text.substr(0, text.find('\n'));
}

} // namespace

std::vector<OpenDeletedFiles> openDeletedFiles(const std::string &home)
{
    const Disk disk(home);
    std::map<std::string, std::int64_t> sizes; // keyed by program
    std::set<std::pair<dev_t, std::uint64_t>> seen;
    const auto open = [](int folder, const char *name) {
        return FileDescriptor(::openat(folder, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    };
    FileDescriptor processes = open(AT_FDCWD, "/proc");
    const int all = processes.number();
    forEachName(std::move(processes), [&](const char *number) {
        if (pidFrom(number) == 0)
            return;
        const FileDescriptor process = open(all, number);
        FileDescriptor files = process.isOpen() ? open(process.number(), "fd") : FileDescriptor();
        const int held = files.number();
        forEachName(std::move(files), [&](const char *file) {
            struct statx facts {};
            // Cached attributes suffice for a file on a network disk; do not query the server.
            if (file[0] == '.' || !mayBeDeleted(held, file) ||
                ::statx(held, file, AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT,
                        STATX_TYPE | STATX_NLINK | STATX_INO | STATX_BLOCKS, &facts) != 0)
                return;
            if (!S_ISREG(facts.stx_mode) || facts.stx_nlink != 0 || facts.stx_blocks == 0 ||
                !disk.holds(held, file, facts) ||
                !seen.emplace(makedev(facts.stx_dev_major, facts.stx_dev_minor), facts.stx_ino).second)
                return;
            std::int64_t &size = sizes[programName(process.number())];
            const std::int64_t more = bytesOfBlocks(facts.stx_blocks, 512).value_or(0);
            if (std::int64_t sum = 0; !__builtin_add_overflow(size, more, &sum))
                size = sum;
        });
    });
    std::vector<OpenDeletedFiles> held;
    held.reserve(sizes.size());
    for (const auto &[program, size] : sizes)
        held.push_back({program, size});
    std::ranges::stable_sort(held, std::ranges::greater(), &OpenDeletedFiles::size);
    return held;
}

} // namespace corvane
