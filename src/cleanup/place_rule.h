#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mount_map.h"
#include "core/path_guard.h"
#include "platform/file_system.h"

namespace corvane {

/// Finds the folders of the cleanup catalogue, and refuses unexpected ones: a variable or a link may turn a user's own
/// folder into a "cache". Immutable, so usable from any thread.
class PlaceRule {
public:
    /// `files` must outlive the object.
    explicit PlaceRule(FileSystem &files);

    /// The folder for what a Mac keeps at `relativePath` in the home folder; it need not exist. Nothing if it really
    /// (links resolved) is or contains the home folder or one of the user's main folders, is inside one, is "/tmp" or
    /// is protected, also through a second mount. Exceptions: the usual place itself is accepted even if protected, and
    /// the usual place of a main folder always; so is a link to a separate folder. A main folder that the user has
    /// moved must not be in a location of the system or of programs' data.
    [[nodiscard]] std::optional<std::string> placeFor(std::string_view relativePath) const;

    /// The folders of trashed items on other volumes, without those refused by the rules above.
    [[nodiscard]] std::vector<std::string> trashesOfVolumes() const;

private:
    [[nodiscard]] std::string real(const std::string &path) const;
    [[nodiscard]] bool isRefused(const std::string &realPlace, const std::string &place,
                                 const std::string &usual) const;
    [[nodiscard]] bool isMainFolder(const std::string &usual) const;
    /// Whether the configured location of a main folder belongs to the system or to programs.
    [[nodiscard]] bool isNoMainFolder(const std::string &realPlace) const;

    FileSystem &m_files;
    const std::string m_home;
    const std::string m_realHome;
    const ProtectedLocations m_locations;
    const std::vector<std::string> m_userFolders; // as configured by the user
    const MountMap m_mounts;
    std::vector<std::string> m_usualFolders; // at their default locations
};

} // namespace corvane
