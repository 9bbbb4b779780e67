#include "platform/linux/linux_trash.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include <fcntl.h>
#include <gio/gunixmounts.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/linux/gio_error.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/mounts.h"
#include "platform/linux/name_reservation.h"
#include "platform/linux/real_path.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr const char *moveToTrash = "move to Trash";

tl::unexpected<Error> lackingService(const char *operation, const std::string &path)
{
    return tl::unexpected(Error{operation, path, std::make_error_code(std::errc::not_supported),
                                "There is no such service on this system."});
}

/// Whether the volume of the item has no room for even one more block. The item's own folder is asked: the
/// Trash that takes the item lies on the same volume, and a quota holds for both. Nothing with a name is made.
bool volumeIsFull(const std::string &path)
{
    const std::string folder(containingFolder(withoutDots(path)));
    const FileDescriptor probe(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    constexpr off_t oneRecord = 4096; // more than the record of a path of the greatest length that the kernel takes
    const int code = probe.isOpen() ? ::posix_fallocate(probe.number(), 0, oneRecord) : errno;
    if (code == ENOSPC || code == EDQUOT)
        return true;
    const bool cannotTell = code == EOPNOTSUPP || code == EISDIR || code == EINVAL; // no nameless files there
    struct statvfs volume {};
    return cannotTell && ::statvfs(folder.c_str(), &volume) == 0 && volume.f_blocks > 0 && volume.f_bavail == 0;
}

/// The Trash folders that GIO may choose for an item in `folder`: the user's own, and for an item on
/// another volume also the two at its top. Those that do not exist are among them.
std::vector<std::string> trashFoldersFor(std::string folder)
{
    std::vector<std::string> folders{LinuxTrash::foldersOfUser().front()};
    struct stat home {};
    struct stat here {};
    if (::stat(g_get_home_dir(), &home) != 0 || ::stat(folder.c_str(), &here) != 0 || home.st_dev == here.st_dev)
        return folders;
    while (folder.size() > 1) {
        const std::string above(containingFolder(folder));
        struct stat facts {};
        if (::stat(above.c_str(), &facts) != 0 || facts.st_dev != here.st_dev)
            break;
        folder = above;
    }
    const std::string user = std::to_string(::getuid());
    folders.push_back(joined(folder, ".Trash/" + user));
    folders.push_back(joined(folder, ".Trash-" + user));
    return folders;
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

    std::vector<NameReservation> reservations; // until the item is moved
    const std::string plain = withoutDots(path);
    for (const std::string &trash : trashFoldersFor(std::string(containingFolder(plain)))) {
        Expected<NameReservation> reservation = NameReservation::make(trash, std::string(lastPathComponent(plain)));
        if (!reservation)
            return tl::unexpected(reservation.error());
        reservations.push_back(std::move(*reservation));
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

void LinuxTrash::forget(const std::string &path)
{
    const std::string_view files = containingFolder(path);
    const std::string trash(containingFolder(files));
    const std::vector<std::string> folders = trashFolders();
    if (lastPathComponent(files) != "files" || std::ranges::find(folders, trash) == folders.end() ||
        m_files.facts(path).has_value())
        return;
    const FileDescriptor top(::open(trash.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const FileDescriptor records(::openat(top.number(), "info", O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    const std::string record = std::string(lastPathComponent(path)) + ".trashinfo";
    if (records.isOpen())
        ::unlinkat(records.number(), record.c_str(), 0);
}

std::vector<std::string> LinuxTrash::foldersOfUser()
{
    const std::string data = withoutDots(g_get_user_data_dir());
    std::vector<std::string> folders{joined(data, "Trash")};
    if (const Expected<std::string> real = resolvedPath(data); real && *real != data)
        folders.push_back(joined(*real, "Trash"));
    return folders;
}

std::vector<std::string> LinuxTrash::trashFolders()
{
    std::vector<std::string> folders{joined(m_files.homeFolder(), ".Trash")};
    std::ranges::move(foldersOfUser(), std::back_inserter(folders));
    const std::string user = std::to_string(::getuid());
    GList *const mounts = g_unix_mounts_get(nullptr);
    for (const GList *each = mounts; each != nullptr; each = each->next) {
        auto *const mount = static_cast<GUnixMountEntry *>(each->data);
        if (g_unix_mount_is_system_internal(mount))
            continue;
        const std::string top = withoutDots(g_unix_mount_get_mount_path(mount));
        folders.push_back(joined(top, ".Trash/" + user));
        folders.push_back(joined(top, ".Trash-" + user));
    }
    g_list_free_full(mounts, [](gpointer mount) { g_unix_mount_free(static_cast<GUnixMountEntry *>(mount)); });
    return folders;
}

} // namespace corvane
