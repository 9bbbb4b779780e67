#include "platform/linux/linux_held_folder.h"

#include <cerrno>
#include <climits>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/linux/linux_open_folder.h"
#include "platform/linux/open_trash.h"
#include "platform/linux/package_extensions.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// The same component by component, for kernels without that call and for paths of any length.
FileDescriptor walkWithoutLinks(std::string_view path)
{
    FileDescriptor folder(::open("/", folderFlags));
    while (folder.isOpen() && !path.empty()) {
        const std::size_t start = path.find_first_not_of('/');
        if (start == std::string_view::npos)
            break;
        const std::size_t end = path.find('/', start);
        const std::string name(path.substr(start, end - start));
        folder = FileDescriptor(::openat(folder.number(), name.c_str(), folderFlags | O_NOFOLLOW));
        path = end == std::string_view::npos ? std::string_view() : path.substr(end);
    }
    return folder;
}

/// Opens a folder by a path that must not contain a link; not open, with `errno` set, if it does.
FileDescriptor openWithoutLinks(const std::string &path)
{
    if (path.size() < PATH_MAX) {
        open_how how{};
        how.flags = folderFlags;
        how.resolve = RESOLVE_NO_SYMLINKS;
        FileDescriptor folder(static_cast<int>(::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how)));
        if (folder.isOpen() || (errno != ENOSYS && errno != EPERM)) // EPERM: blocked by an older sandbox's filter
            return folder;
    }
    return walkWithoutLinks(path);
}

} // namespace

Expected<std::unique_ptr<HeldFolder>> LinuxHeldFolder::hold(const std::string &path)
{
    // Most paths contain no link, and resolving checks every folder on the path.
    if (path.starts_with('/') && path == withoutDots(path)) {
        if (FileDescriptor folder = openWithoutLinks(path); folder.isOpen())
            return std::make_unique<LinuxHeldFolder>(std::move(folder), path);
    }
    Expected<ResolvedFolder> folder = openResolved(path, openWithoutLinks);
    if (!folder)
        return tl::unexpected(folder.error());
    return std::make_unique<LinuxHeldFolder>(std::move(folder->descriptor), std::move(folder->path));
}

bool LinuxHeldFolder::isPackage(const std::string &name) const
{
    return isKnownPackageExtension(nameExtension(name));
}

Expected<std::unique_ptr<OpenFolder>> LinuxHeldFolder::openInside(int folder, const std::string &name) const
{
    return LinuxOpenFolder::open(folder, name.c_str(), LinkRule::refuse);
}

ItemRemoval::ReadOnlyFolders LinuxHeldFolder::readOnlyFolders() const
{
    // Items are trashed unchanged, including read-only folders created by tools, and must still be deletable.
    return liesInTrash(path()) ? ItemRemoval::ReadOnlyFolders::yield : ItemRemoval::ReadOnlyFolders::resist;
}

} // namespace corvane
