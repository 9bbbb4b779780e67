#include "platform/linux/linux_held_folder.h"

#include <cerrno>
#include <climits>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "platform/linux/linux_open_folder.h"
#include "platform/linux/open_trash.h"
#include "platform/linux/real_path.h"
#include "platform/linux/stat_facts.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"
#include "platform/posix/item_removal.h"

namespace corvane {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

tl::unexpected<Error> failure(const char *operation, std::string path, int code, std::string text = {})
{
    return tl::unexpected(Error{operation, std::move(path), {code, std::generic_category()}, std::move(text)});
}

/// The same for a kernel without the call, and for a path of any length: component by component.
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

/// Opens a folder by a path that may have no link in it; not open, with `errno` set, where it has one by now.
FileDescriptor openWithoutLinks(const std::string &path)
{
    if (path.size() < PATH_MAX) {
        open_how how{};
        how.flags = folderFlags;
        how.resolve = RESOLVE_NO_SYMLINKS;
        FileDescriptor folder(static_cast<int>(::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how)));
        if (folder.isOpen() || (errno != ENOSYS && errno != EPERM)) // EPERM: a sandbox that does not know the call
            return folder;
    }
    return walkWithoutLinks(path);
}

} // namespace

Expected<std::unique_ptr<HeldFolder>> LinuxHeldFolder::hold(const std::string &path)
{
    // Most paths have no link in them, and resolving takes a look at every folder on the way.
    if (path.starts_with('/') && path == withoutDots(path)) {
        if (FileDescriptor folder = openWithoutLinks(path); folder.isOpen())
            return std::make_unique<LinuxHeldFolder>(std::move(folder), path);
    }
    // Where a folder on the way is being replaced, the path may lead elsewhere the moment after it was resolved.
    constexpr int attempts = 3;
    for (int attempt = 1;; ++attempt) {
        Expected<std::string> real = resolvedPath(path);
        if (!real)
            return tl::unexpected(real.error());
        FileDescriptor folder = openWithoutLinks(*real);
        if (folder.isOpen())
            return std::make_unique<LinuxHeldFolder>(std::move(folder), std::move(*real));
        if (attempt == attempts) {
            return failure("open", path, errno,
                           errno == ELOOP ? "a folder on its way was replaced while it was being removed" : "");
        }
    }
}

FolderIdentity LinuxHeldFolder::identity() const
{
    struct stat facts;
    return ::fstat(descriptor(), &facts) == 0 ? FolderIdentity{facts.st_dev, facts.st_ino} : FolderIdentity{};
}

Expected<ItemFacts> LinuxHeldFolder::facts(const std::string &name)
{
    struct stat facts;
    if (!isItemName(name))
        return failure("examine", joined(m_path, name), EINVAL);
    if (::fstatat(descriptor(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return failure("examine", joined(m_path, name), errno);
    return itemFacts(facts, name);
}

Expected<void> LinuxHeldFolder::removeItem(const std::string &name, const ItemIdentity &expected)
{
    if (!isItemName(name))
        return failure("delete", joined(m_path, name), EINVAL);
    const auto openInside = [](int folder, const std::string &child) -> Expected<std::unique_ptr<OpenFolder>> {
        return LinuxOpenFolder::open(folder, child.c_str(), LinuxOpenFolder::LinkRule::refuse);
    };
    // What is in the Trash got there as it was, read-only folders of tools included, and is to be emptied.
    const auto readOnlyFolders =
        liesInTrash(m_path) ? ItemRemoval::ReadOnlyFolders::yield : ItemRemoval::ReadOnlyFolders::resist;
    return ItemRemoval(descriptor(), m_path, openInside, readOnlyFolders).remove(name, expected);
}

Expected<void> LinuxHeldFolder::moveItem(const std::string &name, HeldFolder &target, const std::string &newName)
{
    if (!isItemName(name) || !isItemName(newName))
        return failure("move", joined(m_path, name), EINVAL);
    return moveAt(descriptor(), name, target.descriptor(), newName) ? Expected<void>{}
                                                                    : failure("move", joined(m_path, name), errno);
}

} // namespace corvane
