#include "platform/protected_places.h"

#include <unistd.h>

#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "platform/path.h"

namespace corvane {

namespace {

// Of what a Trash folder consists. Whatever lies inside them is in the Trash, so either of them ticked as a whole
// would be everything in it.
const std::vector<std::string> trashParts{"files", "info"};

std::vector<std::string> withTheUsersOwn(std::vector<std::string> places)
{
    LinuxFileSystem files;
    for (std::string &folder : files.userFolders())
        places.push_back(std::move(folder));
    for (const std::string &trash : LinuxTrash::foldersOfUser()) {
        places.push_back(trash);
        for (const std::string &part : trashParts)
            places.push_back(joined(trash, part));
    }
    return places;
}

} // namespace

const ProtectedPlaces &systemProtectedPlaces()
{
    static const std::string user = std::to_string(::getuid());
    static const ProtectedPlaces places{
        // Other people's home folders and other volumes lie in these; what is on a volume may be removed.
        .exact = withTheUsersOwn({"/home", "/media", "/mnt", "/srv"}),
        // What starts the machine, the libraries that every program needs, the kernel's own views, the running
        // services' state, and where the system or its packages lie on systems that keep them elsewhere.
        .prefixes = {"/boot", "/efi", "/gnu", "/lib", "/lib32", "/lib64", "/libx32", "/nix", "/ostree", "/proc",
                     "/root", "/run", "/snap", "/sys", "/sysroot"},
        // The user's folders by their usual names, and what programs keep for the user; single folders inside may go.
        .homeExact = {"Templates", "Videos", ".cache", ".local", ".local/bin", ".local/share", ".local/share/Trash",
                      ".local/share/Trash/files", ".local/share/Trash/info", ".local/state", ".mozilla", ".thunderbird",
                      ".var/app", "snap"},
        .homePrefixes = {".local/share/keyrings"},
        .trashFolders = {".Trash-" + user, ".Trash/" + user},
        .trashParts = trashParts,
        .ignoresCase = false,
    };
    return places;
}

const std::vector<std::string> &systemVirtualFolders()
{
    static const std::vector<std::string> folders{"/proc", "/sys"};
    return folders;
}

} // namespace corvane
