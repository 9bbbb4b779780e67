#include "platform/linux/linux_open_folder.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/failure.h"
#include "platform/linux/package_extensions.h"
#include "platform/path.h"
#include "platform/posix/interrupted_call.h"
#include "platform/posix/stat_facts.h"

namespace corvane {

namespace {

/// The buffer that the kernel fills with a listing, kept per thread for reuse. If a sink lists another folder
/// meanwhile, that listing gets a second buffer.
class ListingBuffer {
public:
    // A folder of 300,000 files takes about 100 calls; a larger buffer is no faster.
    static constexpr std::size_t size = 128 * 1024;

    ListingBuffer()
    {
        Kept &mine = kept();
        m_bytes = mine ? std::move(mine) : std::make_unique_for_overwrite<Bytes>();
    }
    ~ListingBuffer() { kept() = std::move(m_bytes); }
    ListingBuffer(const ListingBuffer &) = delete;
    ListingBuffer &operator=(const ListingBuffer &) = delete;

    [[nodiscard]] std::byte *data() { return m_bytes->storage.data(); }

private:
    struct Bytes {
        alignas(dirent64) std::array<std::byte, size> storage;
    };
    using Kept = std::unique_ptr<Bytes>;

    static Kept &kept()
    {
        static thread_local Kept bytes;
        return bytes;
    }

    Kept m_bytes;
};

bool isDots(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

Expected<std::unique_ptr<LinuxOpenFolder>> LinuxOpenFolder::open(int base, const char *name, LinkRule rule)
{
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | (rule == LinkRule::refuse ? O_NOFOLLOW : 0);
    // Do not update the access time; only the owner of the folder may request that.
    int number = uninterrupted([&] { return ::openat(base, name, flags | O_NOATIME); });
    if (number < 0 && errno == EPERM)
        number = uninterrupted([&] { return ::openat(base, name, flags); });
    if (number < 0)
        return failure("open", name, errno);
    return std::unique_ptr<LinuxOpenFolder>(new LinuxOpenFolder(FileDescriptor(number)));
}

Expected<void> LinuxOpenFolder::list(const EntrySink &sink)
{
    if (m_listed && ::lseek(descriptor(), 0, SEEK_SET) < 0)
        return failure("list", "", errno);
    m_listed = true;

    ListingBuffer buffer;
    for (;;) {
        const ssize_t length =
            uninterrupted([&] { return ::getdents64(descriptor(), buffer.data(), ListingBuffer::size); });
        if (length < 0 && errno == ENOENT) // the folder was deleted while open: it is empty
            return {};
        if (length < 0)
            return failure("list", "", errno);
        if (length == 0)
            return {};
        const std::byte *position = buffer.data();
        const std::byte *const end = position + length;
        while (position < end) {
            const auto *entry = reinterpret_cast<const dirent64 *>(position);
            position += entry->d_reclen;
            if (!isDots(entry->d_name) && deliver(entry->d_name, entry->d_type, sink) == Listing::stop)
                return failure("list", "", ECANCELED);
        }
    }
}

Listing LinuxOpenFolder::deliver(const char *name, unsigned char type, const EntrySink &sink) const
{
    DirectoryEntry entry{.name = name};
    // For links and folders d_type is all that is needed; some file systems leave it unset.
    if (type == DT_LNK) {
        entry.type = EntryType::symbolicLink;
    } else if (type == DT_DIR) {
        entry.type = EntryType::directory;
    } else {
        struct stat facts;
        if (uninterrupted([&] { return ::fstatat(descriptor(), name, &facts, AT_SYMLINK_NOFOLLOW); }) == 0) {
            describe(entry, facts);
        } else if (errno == ENOENT) {
            return Listing::goOn;
        }
    }
    entry.isPackage = entry.type == EntryType::directory && isKnownPackageExtension(nameExtension(entry.name));
    return sink(entry);
}

Expected<std::unique_ptr<OpenFolder>> LinuxOpenFolder::openChild(const std::string &name)
{
    return open(descriptor(), name.c_str(), LinkRule::refuse);
}

Expected<std::unique_ptr<OpenFolder>> LinuxOpenFolder::openParent()
{
    return open(descriptor(), "..", LinkRule::refuse);
}

const LinuxOpenFolder::Facts &LinuxOpenFolder::facts() const
{
    if (!m_facts) {
        m_facts = Facts{{}, distantPast, 0};
        struct stat facts;
        if (uninterrupted([&] { return ::fstat(descriptor(), &facts); }) == 0)
            *m_facts = {folderIdentity(facts), modificationTime(facts), allocatedBytes(facts)};
    }
    return *m_facts;
}

} // namespace corvane
