#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "apps/found_app.h"
#include "apps/icon_search.h"

namespace corvane {

// Flatpaks and Snaps: applications that a store of their own has brought, each in a sandbox.

inline constexpr std::string_view mountedSnaps = "/snap";
inline constexpr std::string_view snapEntries = "/var/lib/snapd/desktop/applications";

/// A folder in which Flatpaks are installed.
struct FlatpakFolder {
    std::string path;
    std::string command; ///< removes the one whose identifier follows
};

/// The Flatpak of that identifier; nothing for one that is not shown. It may be there several times, once for each of
/// its branches: together they are one. The surroundings must outlive the result.
[[nodiscard]] std::optional<FoundApp> flatpakAt(const FlatpakFolder &folder, const std::string &id,
                                                const IconSearch &icons,
                                                const AppInventory::Surroundings &surroundings);

/// The images in which Snaps lie.
struct SnapImages {
    /// Of the names in the folder of all images, "name_revision.snap".
    [[nodiscard]] static SnapImages in(const std::vector<std::string> &names);

    static constexpr std::string_view folder = "/var/lib/snapd/snaps";

    std::map<std::string, std::vector<std::string>> byName; ///< the paths of the revisions of each
};

/// The Snaps that the menus show. The surroundings must outlive the result.
[[nodiscard]] std::vector<FoundApp> snaps(const SnapImages &images, const IconSearch &icons,
                                          const AppInventory::Surroundings &surroundings);

} // namespace corvane
