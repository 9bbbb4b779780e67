#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apps/bundle_info.h"
#include "apps/installed_app.h"
#include "apps/leftover.h"
#include "core/path_guard.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// Finds the user's applications and what they, and deleted ones, keep in the user's Library. Every call may be made
/// from any thread and blocks; none fails: what cannot be read contributes nothing.
struct AppInventory {
    struct Result {
        std::vector<InstalledApp> apps;        ///< largest first, by the bundle and its exact leftovers
        std::vector<OrphanGroup> orphanGroups; ///< largest first
    };

    /// Once stopped, what has been measured so far.
    [[nodiscard]] static Result load(const Host &host, const ProtectedLocations &locations, Time now,
                                     const StopFlag &stop = neverStopped);

    /// The bundles in "/Applications" and in the "Applications" folder of the home, and one folder deeper.
    [[nodiscard]] static std::vector<std::string> findAppURLs(FileSystem &files);

    /// Nothing for what is no bundle, has no identifier, or is never offered for removal.
    [[nodiscard]] static std::optional<BundleInfo> readBundle(const std::string &path, FileSystem &files);
};

} // namespace corvane
