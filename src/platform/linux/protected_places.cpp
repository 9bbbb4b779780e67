#include "platform/protected_places.h"

#include <unistd.h>

#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "platform/path.h"

namespace corvane {

namespace {

// The subfolders of a Trash. Everything inside them is in the Trash, so selecting one would select all trashed items.
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
        // They contain other users' home folders and other volumes; items on a volume may be removed.
        .exact = withTheUsersOwn({"/home", "/media", "/mnt", "/srv"}),
        // Boot files, libraries needed by every program, virtual file systems, the state of running services, and the
        // folders of systems that keep the system or its packages elsewhere.
        .prefixes = {"/boot", "/efi", "/gnu", "/lib", "/lib32", "/lib64", "/libx32", "/nix", "/ostree", "/proc",
                     "/root", "/run", "/snap", "/sys", "/sysroot"},
        // The user's standard folders that a Mac does not have, and folders with programs' data; single folders inside
        // may be removed.
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
