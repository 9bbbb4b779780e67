#include "platform/linux/open_trash.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/glib_pointer.h"
#include "platform/linux/linux_trash.h"
#include "platform/path.h"
#include "platform/posix/item_at.h"

namespace corvane {

namespace {

FileDescriptor openFolder(int parent, const char *name)
{
    return FileDescriptor(::openat(parent, name, O_PATH | O_DIRECTORY | O_CLOEXEC));
}

} // namespace

std::string TrashPlace::path() const
{
    return basePath.empty() ? relative : joined(basePath, relative);
}

FileDescriptor TrashPlace::open() const
{
    return openFolder(base.isOpen() ? base.number() : AT_FDCWD, relative.c_str());
}

std::vector<TrashPlace> trashPlacesFor(int folder, const std::string &path)
{
    std::vector<TrashPlace> places;
    places.push_back({{}, {}, LinuxTrash::foldersOfUser().front()});
    struct stat home {};
    struct stat here {};
    if (::stat(g_get_home_dir(), &home) != 0 || ::fstat(folder, &here) != 0 || home.st_dev == here.st_dev)
        return places;

    FileDescriptor top = openFolder(folder, ".");
    std::string topPath = path;
    while (topPath.size() > 1) {
        FileDescriptor above = openFolder(top.number(), "..");
        struct stat facts {};
        if (!above.isOpen() || ::fstat(above.number(), &facts) != 0 || facts.st_dev != here.st_dev)
            break;
        top = std::move(above);
        topPath.resize(containingFolder(topPath).size());
    }
    const std::string user = std::to_string(::getuid());
    for (const std::string &relative : {".Trash/" + user, ".Trash-" + user})
        places.push_back({openFolder(top.number(), "."), topPath, relative});
    return places;
}

OpenTrash OpenTrash::at(const TrashPlace &place)
{
    const FileDescriptor top = place.open();
    return {openFolder(top.number(), "files"), openFolder(top.number(), "info"), joined(place.path(), "files"),
            place.basePath};
}

std::optional<std::string> notedPath(const std::string &path, const std::string &top, bool isWhole)
{
    if (!isWhole && !liesBeneath(path, top))
        return std::nullopt;
    const std::size_t start = isWhole ? 0 : top == "/" ? 1 : top.size() + 1;
    const GStringPointer text(g_uri_escape_string(path.c_str() + start, "/", FALSE));
    return text.get();
}

bool moveIntoTrash(int folder, const std::string &name, int items, const std::string &itemName)
{
    if (moveAt(folder, name, items, itemName))
        return true;
    const int code = errno;
    const FileDescriptor item(
        ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat facts {};
    constexpr mode_t permissions = 07777;
    const bool isReadOnly = code == EACCES && item.isOpen() && ::fstat(item.number(), &facts) == 0 &&
                            facts.st_uid == ::getuid() && (facts.st_mode & S_IWUSR) == 0;
    if (!isReadOnly || ::fchmod(item.number(), (facts.st_mode & permissions) | S_IWUSR) != 0) {
        errno = code;
        return false;
    }
    const bool isMoved = moveAt(folder, name, items, itemName);
    const int reason = errno;
    ::fchmod(item.number(), facts.st_mode & permissions);
    errno = reason;
    return isMoved;
}

bool liesInTrash(const std::string &path)
{
    const std::string user = std::to_string(::getuid());
    const std::string whole = path + "/";
    return whole.find("/.Trash-" + user + "/files/") != std::string::npos ||
           whole.find("/.Trash/" + user + "/files/") != std::string::npos ||
           std::ranges::any_of(LinuxTrash::foldersOfUser(),
                               [&](const std::string &trash) { return isOrLiesBeneath(path, joined(trash, "files")); });
}

std::string trashName(const std::string &name, int attempt)
{
    if (attempt == 1)
        return name;
    const std::size_t dot = name.find('.');
    const std::string number = "." + std::to_string(attempt);
    return dot == std::string::npos ? name + number : name.substr(0, dot) + number + name.substr(dot);
}

std::string recordName(const std::string &name)
{
    return name + ".trashinfo";
}

} // namespace corvane
