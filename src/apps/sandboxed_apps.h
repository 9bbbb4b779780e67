#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "apps/found_app.h"
#include "apps/icon_search.h"
#include "apps/search_context.h"

namespace corvane {

// Flatpaks and Snaps: sandboxed applications installed from their own stores.

inline constexpr std::string_view mountedSnaps = "/snap";
inline constexpr std::string_view snapEntries = "/var/lib/snapd/desktop/applications";

/// A folder in which Flatpaks are installed.
struct FlatpakFolder {
    std::string path;
    std::string command; ///< the removal command, to be followed by the application ID
};

/// The Flatpak with that ID; nothing if it is hidden. Several installed branches count as one. The context must
/// outlive the result.
[[nodiscard]] std::optional<FoundApp> flatpakAt(const FlatpakFolder &folder, const std::string &id,
                                                const IconSearch &icons, const SearchContext &context);

/// The images of installed Snaps.
struct SnapImages {
    /// Parses names "name_revision.snap" from the folder of all images.
    [[nodiscard]] static SnapImages in(const std::vector<std::string> &names);

    static constexpr std::string_view folder = "/var/lib/snapd/snaps";

    std::map<std::string, std::vector<std::string>> byName; ///< paths of the revisions of each Snap
};

/// The visible Snaps. The context must outlive the result.
[[nodiscard]] std::vector<FoundApp> snaps(const SnapImages &images, const IconSearch &icons,
                                          const SearchContext &context);

} // namespace corvane
