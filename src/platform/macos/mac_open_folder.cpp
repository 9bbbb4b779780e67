#include "platform/macos/mac_open_folder.h"

#include <cerrno>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>

#include <dirent.h>
#include <fcntl.h>
#include <sys/attr.h>
#include <sys/param.h>
#include <sys/stat.h>
#include <sys/vnode.h>
#include <unistd.h>

#include "platform/bulk_attributes.h"
#include "platform/failure.h"
#include "platform/posix/directory_stream.h"
#include "platform/posix/interrupted_call.h"
#include "platform/posix/stat_facts.h"

namespace corvane {

static_assert(BulkAttributes::name == ATTR_CMN_NAME && BulkAttributes::objectType == ATTR_CMN_OBJTYPE &&
              BulkAttributes::modificationTime == ATTR_CMN_MODTIME && BulkAttributes::finderInfo == ATTR_CMN_FNDRINFO &&
              BulkAttributes::fileNumber == ATTR_CMN_FILEID && BulkAttributes::linkCount == ATTR_FILE_LINKCOUNT &&
              BulkAttributes::error == ATTR_CMN_ERROR &&
              BulkAttributes::returnedAttributes == ATTR_CMN_RETURNED_ATTRS &&
              BulkAttributes::totalAllocated == ATTR_FILE_ALLOCSIZE &&
              BulkAttributes::dataLength == ATTR_FILE_DATALENGTH &&
              BulkAttributes::dataAllocated == ATTR_FILE_DATAALLOCSIZE);
static_assert(BulkEntry::directoryType == VDIR && BulkEntry::symbolicLinkType == VLNK);
static_assert(sizeof(timespec) == 2 * sizeof(std::int64_t) && sizeof(off_t) == sizeof(std::int64_t));

namespace {

constexpr std::size_t bulkSize = 128 * 1024; // a few hundred entries per call

} // namespace

Expected<std::unique_ptr<OpenFolder>> MacOpenFolder::open(int base, const std::string &name, int flags,
                                                          PackageExtensionCache &packages)
{
    FileDescriptor descriptor(
        uninterrupted([&] { return ::openat(base, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags); }));
    if (!descriptor.isOpen())
        return failure("open", name, errno);
    return std::unique_ptr<OpenFolder>(new MacOpenFolder(std::move(descriptor), packages));
}

MacOpenFolder::MacOpenFolder(FileDescriptor descriptor, PackageExtensionCache &packages)
    : m_descriptor(std::move(descriptor)), m_packages(packages)
{
    struct stat status {};
    if (::fstat(m_descriptor.number(), &status) != 0)
        return;
    m_identity = folderIdentity(status);
    m_modified = modificationTime(status);
    m_allocated = allocatedBytes(status);
}

Expected<void> MacOpenFolder::list(const EntrySink &sink)
{
    int code = listInBulk(sink);
    if (code == ENOTSUP || code == EINVAL) // not supported by every file system
        code = listOneByOne(sink);
    if (code != 0)
        return failure("list", {}, code);
    return {};
}

int MacOpenFolder::listInBulk(const EntrySink &sink) const
{
    attrlist wanted{};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.commonattr = BulkAttributes::common;
    wanted.fileattr = BulkAttributes::file;

    if (::lseek(m_descriptor.number(), 0, SEEK_SET) != 0)
        return errno;
    // Not shared: the sink may list another folder.
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(bulkSize);
    bool hasListed = false;
    for (;;) {
        int count = ::getattrlistbulk(m_descriptor.number(), &wanted, buffer.get(), bulkSize, 0);
        if (count == 0)
            return 0;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return hasListed && (errno == ENOTSUP || errno == EINVAL) ? EIO : errno; // never list an entry twice
        for (std::span<const std::byte> bytes(buffer.get(), bulkSize); count > 0; --count) {
            const std::optional<BulkEntry> found = takeBulkEntry(bytes);
            if (!found)
                return hasListed ? EIO : EINVAL;
            hasListed = true;
            if (found->error == ENOENT)
                continue;
            DirectoryEntry entry{.name = found->name, .type = found->type.value_or(EntryType::file)};
            if (!found->isComplete()) {
                if (!completeFromStatus(std::string(found->name), entry))
                    continue;
            } else if (entry.type == EntryType::directory) {
                entry.isPackage = found->hasBundleBit || m_packages.isPackageName(found->name);
            } else if (entry.type == EntryType::file) {
                entry.modified = found->modified.value_or(distantPast);
                entry.allocated = *found->allocated;
                entry.length = found->length;
                entry.links = found->links;
                entry.inode = found->fileNumber;
            }
            if (sink(entry) == Listing::stop)
                return ECANCELED;
        }
    }
}

int MacOpenFolder::listOneByOne(const EntrySink &sink) const
{
    // One of its own, because the two ways of listing must not share a position.
    const DirectoryStream stream = ownStreamOf(m_descriptor.number());
    if (!stream)
        return errno;
    for (;;) {
        errno = 0;
        const dirent *const found = ::readdir(stream.get());
        if (found == nullptr)
            return errno;
        const std::string name(found->d_name, found->d_namlen);
        DirectoryEntry entry{.name = name};
        if (name != "." && name != ".." && completeFromStatus(name, entry) && sink(entry) == Listing::stop)
            return ECANCELED;
    }
}

/// Fills in attributes from the item's status; false if the item no longer exists.
bool MacOpenFolder::completeFromStatus(const std::string &name, DirectoryEntry &entry) const
{
    struct stat status {};
    if (::fstatat(m_descriptor.number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno != ENOENT;
    describe(entry, status);
    entry.isPackage = entry.type == EntryType::directory && m_packages.isPackageName(name);
    return true;
}

Expected<std::unique_ptr<OpenFolder>> MacOpenFolder::openChild(const std::string &name)
{
    return open(m_descriptor.number(), name, O_NOFOLLOW, m_packages);
}

Expected<std::unique_ptr<OpenFolder>> MacOpenFolder::openParent()
{
    // Use the user-visible path if it is short enough: a folder such as "/Users" is on another volume, and its ".."
    // leads to that volume's top.
    char path[MAXPATHLEN];
    if (::fcntl(m_descriptor.number(), F_GETPATH, path) == 0) {
        const std::string_view here(path);
        const std::size_t slash = here.rfind('/');
        if (slash != std::string_view::npos) {
            auto parent = open(AT_FDCWD, slash == 0 ? "/" : std::string(here.substr(0, slash)), 0, m_packages);
            if (parent)
                return parent;
        }
    }
    return open(m_descriptor.number(), "..", 0, m_packages);
}

} // namespace corvane
