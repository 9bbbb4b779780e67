#include "platform/linux/open_trash.h"

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/linux_trash.h"
#include "platform/path.h"

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
