#include "platform/linux/linux_trash.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include <fcntl.h>
#include <gio/gunixmounts.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/file_descriptor.h"
#include "platform/linux/open_trash.h"
#include "platform/linux/trash_slot.h"
#include "platform/path.h"
#include "platform/posix/real_path.h"

namespace corvane {

namespace {

tl::unexpected<Error> lackingService(const char *operation, const std::string &path)
{
    return failure(operation, path, ENOTSUP, "There is no such service on this system.");
}

/// Whether the folder's volume has no room for even one more block. The Trash for items of the folder is on the same
/// volume, and a quota applies to both. Creates no named file.
bool volumeIsFull(int folder)
{
    const FileDescriptor probe(::openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    constexpr off_t oneRecord = 4096; // larger than a record with the longest possible path
    const int code = probe.isOpen() ? ::posix_fallocate(probe.number(), 0, oneRecord) : errno;
    if (code == ENOSPC || code == EDQUOT)
        return true;
    const bool cannotTell = code == EOPNOTSUPP || code == EISDIR || code == EINVAL; // no O_TMPFILE support
    struct statvfs volume {};
    return cannotTell && ::fstatvfs(folder, &volume) == 0 && volume.f_blocks > 0 && volume.f_bavail == 0;
}

/// Whether the open folder is the user's own Trash, even if that is a link to it.
bool isTrashOfUser(int folder)
{
    struct stat here {};
    struct stat there {};
    return ::fstat(folder, &here) == 0 && ::stat(LinuxTrash::foldersOfUser().front().c_str(), &there) == 0 &&
           here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

} // namespace

Expected<TrashedItem> LinuxTrash::trashItem(HeldFolder &folder, const std::string &name)
{
    const Expected<ItemFacts> facts = folder.facts(name);
    if (!facts)
        return tl::unexpected(facts.error());
    if (m_known && m_known->takesFrom(folder, *facts)) {
        if (std::optional<TrashedItem> trashed = m_known->take(folder, name))
            return *std::move(trashed);
    }
    m_known.reset();
    Expected<TrashSlot> slot = TrashSlot::make(folder, name);
    if (!slot) {
        // On a full disk GIO leaves the record of the original path empty and reports success. The check costs as much
        // disk work as trashing, so do it only after a failure.
        if (!volumeIsFull(folder.descriptor()))
            return tl::unexpected(slot.error());
        return failure(moveToTrash, joined(folder.path(), name), ENOSPC,
                       "The disk is full: the Trash cannot record where the item came from.");
    }
    if (Expected<void> moved = slot->fill(); !moved)
        return tl::unexpected(moved.error());
    const std::string arrivedAs = slot->name();
    m_known.emplace(folder, std::move(*slot).release());
    return m_known->arrived(arrivedAs);
}

Expected<TrashedItem> LinuxTrash::recycle(HeldFolder &folder, const std::string &name)
{
    return lackingService("recycle", joined(folder.path(), name));
}

Expected<void> LinuxTrash::trashThroughFinder(const std::string &path)
{
    return lackingService("delete through the file manager", path);
}

void LinuxTrash::forget(HeldFolder &folder, const std::string &name)
{
    if (lastPathComponent(folder.path()) != "files" || folder.facts(name))
        return;
    const FileDescriptor top(::openat(folder.descriptor(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const std::vector<std::string> folders = trashFolders();
    if (std::ranges::find(folders, containingFolder(folder.path())) == folders.end() && !isTrashOfUser(top.number()))
        return;
    const FileDescriptor records(::openat(top.number(), "info", O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (records.isOpen())
        ::unlinkat(records.number(), recordName(name).c_str(), 0);
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
