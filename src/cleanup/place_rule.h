#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mount_map.h"
#include "core/path_guard.h"
#include "platform/file_system.h"

namespace corvane {

/// Finds the folders of the cleanup catalogue, and refuses those that are not what they are taken for: a variable or a
/// link may make a user's own folder a "cache". Immutable, so safe to ask from any thread.
class PlaceRule {
public:
    /// `files` outlives the object.
    explicit PlaceRule(FileSystem &files);

    /// The folder that holds what a Mac keeps at `relativePath` in the home folder; it need not exist. Nothing where it
    /// really (links resolved) is or contains the home folder or one of the user's main folders, lies in one, is "/tmp"
    /// or is protected, also where it is mounted a second time. The usual place itself holds also where it is
    /// protected, and the usual place of a main folder whatever it is; so does a link to a folder of its own. A main
    /// folder that the user has named elsewhere must not be where the system or programs keep their own.
    [[nodiscard]] std::optional<std::string> placeFor(std::string_view relativePath) const;

    /// The folders of what lies in the Trash of other volumes, but for those that really are what is refused above.
    [[nodiscard]] std::vector<std::string> trashesOfVolumes() const;

private:
    [[nodiscard]] std::string real(const std::string &path) const;
    [[nodiscard]] bool isRefused(const std::string &realPlace, const std::string &place,
                                 const std::string &usual) const;
    [[nodiscard]] bool isMainFolder(const std::string &usual) const;
    /// Whether what a main folder was set to is a place of the system's or of programs.
    [[nodiscard]] bool isNoMainFolder(const std::string &realPlace) const;

    FileSystem &m_files;
    const std::string m_home;
    const std::string m_realHome;
    const ProtectedLocations m_locations;
    const std::vector<std::string> m_userFolders; // as the user has named them
    const MountMap m_mounts;
    std::vector<std::string> m_usualFolders; // as they are usually named
};

} // namespace corvane
