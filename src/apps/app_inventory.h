#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "apps/bundle_info.h"
#include "apps/installed_app.h"
#include "apps/leftover.h"
#include "apps/library_listings.h"
#include "apps/search_context.h"
#include "core/path_guard.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// Finds the user's applications and the data that they, and deleted ones, keep in the user's Library. Every call may
/// be made from any thread and blocks; none fails: what cannot be read contributes nothing. Changes nothing.
///
/// Identifiers and names are compared in lower case (`lowerCase`). Names are bytes, so composed and decomposed
/// spellings of a name differ.
///
/// A symbolic link "Foo.app" is an application like any other, read through the link, since users see it as one. The
/// link itself occupies nothing, and a removal removes only the link.
struct AppInventory {
    struct Result {
        std::vector<InstalledApp> apps;        ///< largest first, by the bundle and its exact leftovers
        std::vector<OrphanGroup> orphanGroups; ///< largest first
    };

    /// When stopped, what has been measured so far. The sum of all sizes does not overflow.
    [[nodiscard]] static Result load(const Host &host, const ProtectedLocations &locations, Time now,
                                     const StopFlag &stop = neverStopped);

    /// The bundles in "/Applications", in the home folder's "Applications", and one folder deeper. If both are the same
    /// folder, only those of the first.
    [[nodiscard]] static std::vector<std::string> findAppURLs(const std::string &home, FileSystem &files,
                                                              const StopFlag &stop = neverStopped);

    /// Nothing if it is not a bundle, has no identifier, or is never offered for removal.
    [[nodiscard]] static std::optional<BundleInfo> readBundle(const std::string &path, FileSystem &files);

    /// All identifiers in lower case, in the order of the bundles.
    [[nodiscard]] static std::vector<std::string> allIDs(const std::vector<BundleInfo> &bundles);

    /// The bundle's data in the Library, largest first. An item claimed by an identifier in `allIDs` is not matched to
    /// another application by name. The sum of all sizes may overflow.
    [[nodiscard]] static std::vector<Leftover> findLeftovers(const BundleInfo &bundle,
                                                             const std::vector<std::string> &allIDs,
                                                             const LibraryListings &listings,
                                                             const SearchContext &context);

    /// The data of applications without any installed vendor, largest group first.
    [[nodiscard]] static std::vector<OrphanGroup> findOrphans(const std::unordered_set<std::string> &vendors,
                                                              const LibraryListings &listings,
                                                              const SearchContext &context);
};

} // namespace corvane
