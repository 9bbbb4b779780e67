#include "platform/linux/linux_trash.h"

#include <cerrno>

#include <fcntl.h>
#include <gio/gunixmounts.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/linux/gio_error.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/mounts.h"

namespace corvane {

namespace {

constexpr const char *moveToTrash = "move to Trash";

tl::unexpected<Error> lackingService(const char *operation, const std::string &path)
{
    return tl::unexpected(Error{operation, path, std::make_error_code(std::errc::not_supported),
                                "There is no such service on this system."});
}

std::string containingFolder(const std::string &path)
{
    const std::size_t nameEnd = path.find_last_not_of('/');
    const std::size_t slash = path.rfind('/', nameEnd);
    return slash == std::string::npos || slash == 0 ? "/" : path.substr(0, slash);
}

/// Whether the volume of the item has no room for even one more block. The item's own folder is asked: the
/// Trash that takes the item lies on the same volume, and a quota holds for both. Nothing with a name is made.
bool volumeIsFull(const std::string &path)
{
    const FileDescriptor probe(::open(containingFolder(path).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    constexpr off_t oneRecord = 4096; // more than the record of a path of the greatest length that the kernel takes
    const int code = probe.isOpen() ? ::posix_fallocate(probe.number(), 0, oneRecord) : errno;
    if (code == ENOSPC || code == EDQUOT)
        return true;
    const bool cannotTell = code == EOPNOTSUPP || code == EISDIR || code == EINVAL; // no nameless files there
    struct statvfs volume {};
    return cannotTell && ::statvfs(containingFolder(path).c_str(), &volume) == 0 && volume.f_blocks > 0 &&
           volume.f_bavail == 0;
}

} // namespace

Expected<void> LinuxTrash::trashItem(const std::string &path)
{
    // A folder that is moved takes along what is mounted inside it: emptying the Trash would then empty that disk.
    if (Expected<void> unmounted = refuseMountPoints(moveToTrash, path); !unmounted)
        return unmounted;

    // On a full disk GIO moves the item but leaves the record of where it came from empty, and reports
    // success: no file manager could ever put the item back.
    if (volumeIsFull(path)) {
        return tl::unexpected(Error{moveToTrash, path, std::make_error_code(std::errc::no_space_on_device),
                                    "The disk is full: the Trash cannot note where the item came from."});
    }

    // The local files' own implementation: the default one may leave the work to a service on the session bus.
    // GIO tells the default one of the move afterwards; without a bus that comes to nothing and does no harm.
    const GObjectPointer<GFile> file(g_vfs_get_file_for_path(g_vfs_get_local(), path.c_str()));
    GError *failure = nullptr;
    if (g_file_trash(file.get(), nullptr, &failure))
        return {};
    const GErrorPointer owner(failure);
    return tl::unexpected(gioError(moveToTrash, path, *failure));
}

Expected<void> LinuxTrash::recycle(const std::string &path)
{
    return lackingService("recycle", path);
}

Expected<void> LinuxTrash::deleteThroughFinder(const std::string &path)
{
    return lackingService("delete through the file manager", path);
}

std::vector<std::string> LinuxTrash::trashFolders()
{
    std::vector<std::string> folders{m_files.homeFolder() + "/.Trash", std::string(g_get_user_data_dir()) + "/Trash"};
    const std::string user = std::to_string(::getuid());
    GList *const mounts = g_unix_mounts_get(nullptr);
    for (const GList *each = mounts; each != nullptr; each = each->next) {
        auto *const mount = static_cast<GUnixMountEntry *>(each->data);
        if (g_unix_mount_is_system_internal(mount))
            continue;
        std::string top = g_unix_mount_get_mount_path(mount);
        if (!top.ends_with('/'))
            top += '/';
        folders.push_back(top + ".Trash/" + user);
        folders.push_back(top + ".Trash-" + user);
    }
    g_list_free_full(mounts, [](gpointer mount) { g_unix_mount_free(static_cast<GUnixMountEntry *>(mount)); });
    return folders;
}

} // namespace corvane
