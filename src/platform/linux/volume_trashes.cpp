#include "platform/linux/volume_trashes.h"

#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/path.h"

namespace corvane {

namespace {

FileDescriptor openFolder(int parent, const std::string &name)
{
    return FileDescriptor(::openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Without the sticky bit any user could replace the folders of others.
bool isSticky(const FileDescriptor &folder)
{
    struct stat facts {};
    return folder.isOpen() && ::fstat(folder.number(), &facts) == 0 && (facts.st_mode & S_ISVTX) != 0;
}

bool holdsOwnItems(const FileDescriptor &trash)
{
    struct stat facts {};
    return trash.isOpen() && ::fstat(trash.number(), &facts) == 0 && facts.st_uid == ::getuid() &&
           openFolder(trash.number(), "files").isOpen();
}

} // namespace

std::vector<std::string> volumeTrashesOn(const std::vector<MountedFolder> &mounts)
{
    constexpr std::string_view devices = "/dev/";
    const std::string user = std::to_string(::getuid());
    std::vector<std::string> trashes;
    for (const MountedFolder &mount : mounts) {
        if (!mount.source.starts_with(devices))
            continue;
        const FileDescriptor top = openFolder(AT_FDCWD, mount.path);
        if (!top.isOpen())
            continue;
        const FileDescriptor shared = openFolder(top.number(), ".Trash");
        if (isSticky(shared) && holdsOwnItems(openFolder(shared.number(), user)))
            trashes.push_back(joined(mount.path, ".Trash/" + user + "/files"));
        if (holdsOwnItems(openFolder(top.number(), ".Trash-" + user)))
            trashes.push_back(joined(mount.path, ".Trash-" + user + "/files"));
    }
    return trashes;
}

} // namespace corvane
