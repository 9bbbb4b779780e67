#include "platform/protected_places.h"

namespace corvane {

const ProtectedPlaces &systemProtectedPlaces()
{
    static const ProtectedPlaces places{
        // Other people's home folders and other volumes lie in these; what is on a volume may be removed.
        .exact = {"/home", "/media", "/mnt", "/srv"},
        // What starts the machine, the libraries that every program needs, the kernel's own views, the running
        // services' state, and where the system or its packages lie on systems that keep them elsewhere.
        .prefixes = {"/boot", "/efi", "/gnu", "/lib", "/lib32", "/lib64", "/libx32", "/nix", "/ostree", "/proc",
                     "/root", "/run", "/snap", "/sys", "/sysroot"},
        // What programs keep for the user; single folders inside may go.
        .homeExact = {".cache", ".local", ".local/share", ".mozilla"},
        .homePrefixes = {".local/share/keyrings"},
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
