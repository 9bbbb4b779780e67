#include "platform/protected_places.h"

namespace corvane {

const ProtectedPlaces &systemProtectedPlaces()
{
    // The common table already contains a Mac's places; Mac disks usually ignore case.
    static const ProtectedPlaces places{
        .exact = {}, .prefixes = {}, .homeExact = {}, .homePrefixes = {}, .ignoresCase = true};
    return places;
}

const std::vector<std::string> &systemVirtualFolders()
{
    static const std::vector<std::string> folders;
    return folders;
}

} // namespace corvane
