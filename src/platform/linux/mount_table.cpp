#include "platform/linux/mount_table.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fstream>
#include <mutex>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <poll.h>

#include "platform/file_descriptor.h"

namespace corvane {

namespace {

constexpr const char *tablePath = "/proc/self/mountinfo";

/// The table as last read, plus the kernel's change notification. Any thread.
class KnownMountTable {
public:
    std::shared_ptr<const std::vector<MountedFolder>> table()
    {
        const std::lock_guard lock(m_mutex);
        const auto now = std::chrono::steady_clock::now();
        // Check for a change before reading: a change during the read is then reported next time. Some systems that
        // emulate Linux send no notification, so reread after a short time anyway.
        constexpr std::chrono::milliseconds longest(50);
        if (hasChanged() || now - m_readAt > longest) {
            std::ifstream mounts(tablePath);
            m_table = std::make_shared<const std::vector<MountedFolder>>(mountsIn(mounts));
            m_readAt = now;
        }
        return m_table;
    }

private:
    bool hasChanged()
    {
        if (!m_table)
            m_news = FileDescriptor(::open(tablePath, O_RDONLY | O_CLOEXEC));
        pollfd news{m_news.number(), POLLPRI, 0};
        return !m_table || !m_news.isOpen() || ::poll(&news, 1, 0) != 0;
    }

    std::mutex m_mutex;
    // Guarded by m_mutex.
    FileDescriptor m_news;
    std::shared_ptr<const std::vector<MountedFolder>> m_table;
    std::chrono::steady_clock::time_point m_readAt;
};

} // namespace

std::string unescapedOctal(const std::string &text)
{
    const auto isDigit = [&](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '7'; };
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && isDigit(i + 1) && isDigit(i + 2) && isDigit(i + 3)) {
            path += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
            i += 3;
        } else {
            path += text[i];
        }
    }
    return path;
}

namespace {

/// Whether file systems of that type are served by another computer, or by a program on this one.
bool mayNotAnswer(std::string_view type)
{
    constexpr std::array<std::string_view, 21> served{
        "9p",     "afs",   "autofs", "beegfs", "ceph",  "cifs",     "coda", "davfs", "gfs2",   "glusterfs", "gpfs",
        "lustre", "ncpfs", "nfs",    "nfs4",   "ocfs2", "orangefs", "smb3", "smbfs", "vboxsf", "virtiofs"};
    // "fuse.sshfs"; also "fuseblk" for one that stores its files on a block device.
    return type.starts_with("fuse") || std::ranges::find(served, type) != served.end();
}

} // namespace

std::vector<MountedFolder> mountsIn(std::istream &mounts)
{
    std::vector<MountedFolder> table;
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string number, parent, root, point;
        std::uint32_t major = 0;
        std::uint32_t minor = 0;
        char colon = 0;
        // The device numbers are those of the file system, even if each of its volumes has its own (btrfs).
        if (!(fields >> number >> parent >> major >> colon >> minor >> root >> point))
            continue;
        // Follows the optional fields, of which there may be any number.
        std::string option, type, source;
        while (fields >> option && option != "-")
            continue;
        fields >> type >> source;
        source = unescapedOctal(source);
        const std::string pool = type == "zfs" ? source.substr(0, source.find('/')) : std::string();
        table.push_back({unescapedOctal(point), std::uint64_t{major} << 32 | minor, unescapedOctal(root), source, pool,
                         mayNotAnswer(type)});
    }
    return table;
}

std::shared_ptr<const std::vector<MountedFolder>> readMountTable()
{
    static KnownMountTable known;
    return known.table();
}

} // namespace corvane
