#include "platform/linux/linux_file_system.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/environment.h"
#include "platform/failure.h"
#include "platform/linux/disk_name.h"
#include "platform/linux/linux_held_folder.h"
#include "platform/linux/linux_open_folder.h"
#include "platform/linux/linux_places.h"
#include "platform/linux/long_path.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/package_extensions.h"
#include "platform/linux/volume_trashes.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"
#include "platform/posix/real_path.h"
#include "platform/posix/regular_file.h"

namespace corvane {

namespace {

/// The path without trailing slashes, which would make the system follow a link there; "/" is kept.
std::string withoutTrailingSlashes(const std::string &path)
{
    const std::size_t last = path.find_last_not_of('/');
    return last == std::string::npos ? path.substr(0, 1) : path.substr(0, last + 1);
}

} // namespace

Expected<std::unique_ptr<OpenFolder>> LinuxFileSystem::openFolder(const std::string &path)
{
    const Expected<LongPath> item = LongPath::resolve(path);
    if (!item)
        return tl::unexpected(item.error());
    return LinuxOpenFolder::open(item->folder(), item->name(), LinkRule::follow).map_error([&](Error error) {
        error.path = path;
        return error;
    });
}

Expected<ItemFacts> LinuxFileSystem::facts(const std::string &path)
{
    const Expected<LongPath> item = LongPath::resolve(withoutTrailingSlashes(path));
    if (!item)
        return tl::unexpected(item.error());
    Expected<ItemFacts> found = factsAt(item->folder(), item->name(), path);
    if (found) {
        found->isPackage = found->type == EntryType::directory &&
                           isKnownPackageExtension(nameExtension(lastPathComponent(item->name())));
    }
    return found;
}

std::optional<std::string> LinuxFileSystem::ownerOf(const std::string &path)
{
    const Expected<LongPath> item = LongPath::resolve(withoutTrailingSlashes(path));
    struct stat facts;
    if (!item || ::fstatat(item->folder(), item->name(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return Environment::accountName(facts.st_uid);
}

bool LinuxFileSystem::exists(const std::string &path)
{
    const Expected<LongPath> item = LongPath::resolve(path);
    struct stat facts;
    return item && ::fstatat(item->folder(), item->name(), &facts, 0) == 0;
}

bool LinuxFileSystem::canOpen(const std::string &path)
{
    const Expected<LongPath> item = LongPath::resolve(path);
    if (!item)
        return false;
    // A plain open would block on a pipe without a writer.
    return FileDescriptor(::openat(item->folder(), item->name(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
        .isOpen();
}

Expected<std::string> LinuxFileSystem::readFile(const std::string &path, std::size_t most)
{
    return LongPath::resolve(path)
        .and_then(
            [&](const LongPath &item) { return RegularFile::open(item.folder(), item.name(), path, LinkRule::follow); })
        .and_then([&](const auto &file) { return file->readAll(most); });
}

Expected<std::unique_ptr<FileReader>> LinuxFileSystem::openFile(const std::string &path)
{
    return LongPath::resolve(path).and_then([&](const LongPath &item) -> Expected<std::unique_ptr<FileReader>> {
        return RegularFile::open(item.folder(), item.name(), path, LinkRule::refuse);
    });
}

Expected<std::string> LinuxFileSystem::realPath(const std::string &path)
{
    return resolvedPath(path);
}

Expected<std::unique_ptr<HeldFolder>> LinuxFileSystem::holdFolder(const std::string &path)
{
    return LinuxHeldFolder::hold(path);
}

Expected<std::vector<std::string>> LinuxFileSystem::mountPoints()
{
    const auto table = readMountTable();
    if (table->empty())
        return failure("read", "/proc/self/mountinfo", ENOENT, "The system does not report which disks are mounted.");
    std::vector<std::string> points(table->size());
    std::ranges::transform(*table, points.begin(), &MountedFolder::path);
    return points;
}

std::string LinuxFileSystem::homeFolder()
{
    const char *const home = std::getenv("HOME");
    if (home == nullptr || *home != '/')
        return Environment::accountHome();
    // After a link, ".." leads elsewhere than the text suggests.
    if (std::string_view(home).find("/..") != std::string_view::npos) {
        if (Expected<std::string> real = resolvedPath(home))
            return *std::move(real);
    }
    return withoutDots(home);
}

std::optional<std::string> LinuxFileSystem::diskName()
{
    return nameOfDisk(*this);
}

std::vector<MountedFolder> LinuxFileSystem::mounts()
{
    std::vector<MountedFolder> visible;
    const auto table = readMountTable();
    for (const MountedFolder &mount : *table) {
        // An earlier mount on the same folder is hidden below it.
        const auto hidden = std::ranges::find(visible, mount.path, &MountedFolder::path);
        if (hidden != visible.end())
            visible.erase(hidden);
        visible.push_back(mount);
    }
    return visible;
}

std::vector<std::string> LinuxFileSystem::userFolders()
{
    return linuxUserFolders(homeFolder());
}

std::vector<std::string> LinuxFileSystem::sharedDataFolders()
{
    return linuxSharedDataFolders();
}

std::vector<std::string> LinuxFileSystem::volumeTrashes()
{
    return volumeTrashesOn(mounts());
}

std::optional<OwnPlace> LinuxFileSystem::ownPlaceFor(std::string_view macPlace)
{
    return linuxPlaceFor(macPlace, homeFolder());
}

} // namespace corvane
