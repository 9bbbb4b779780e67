#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "apps/bundle_info.h"
#include "apps/installed_app.h"
#include "apps/leftover.h"
#include "apps/library_listings.h"
#include "core/path_guard.h"
#include "core/stop_flag.h"
#include "platform/host.h"

namespace corvane {

/// Finds the user's applications and what they, and deleted ones, keep in the user's Library. Every call may be made
/// from any thread and blocks; none fails: what cannot be read contributes nothing. Nothing is changed.
///
/// Identifiers and names are compared in lower case (`lowerCase`). Names are bytes, so one that is written with a
/// letter and its accent apart is another one than that with both in one character.
///
/// A symbolic link "Foo.app" is an application like any other, read through the link: a user sees it as one. The link
/// itself takes up nothing, and it alone is what a removal takes away.
struct AppInventory {
    struct Result {
        std::vector<InstalledApp> apps;        ///< largest first, by the bundle and its exact leftovers
        std::vector<OrphanGroup> orphanGroups; ///< largest first
    };

    /// What the search in the Library goes by.
    struct Surroundings {
        FileSystem &files;
        const ProtectedLocations &locations;
        Time now;
        const StopFlag &stop = neverStopped;
    };

    /// Names that are never taken for an application's own.
    static constexpr std::array<std::string_view, 18> genericNames{
        "google",   "microsoft", "adobe", "apple", "jetbrains", "mozilla", "electron", "crashpad", "sentry",
        "squirrel", "app",       "data",  "cache", "caches",    "logs",    "temp",     "tmp",      "default"};

    /// How the name of what a deleted application left begins.
    static constexpr std::array<std::string_view, 29> orphanTLDs{
        "com", "org",  "net", "io", "app", "dev", "co", "de", "me", "ai", "us", "uk", "fr", "jp", "cn",
        "ru",  "info", "tv",  "so", "sh",  "nl",  "se", "ch", "at", "it", "es", "ca", "au", "id"};

    /// Once stopped, what has been measured so far. All the sizes together can be added up.
    [[nodiscard]] static Result load(const Host &host, const ProtectedLocations &locations, Time now,
                                     const StopFlag &stop = neverStopped);

    /// The bundles in "/Applications" and in the "Applications" folder of the home, and one folder deeper. Where both
    /// are the same folder, those of the first.
    [[nodiscard]] static std::vector<std::string> findAppURLs(const std::string &home, FileSystem &files,
                                                              const StopFlag &stop = neverStopped);

    /// Nothing for what is no bundle, has no identifier, or is never offered for removal.
    [[nodiscard]] static std::optional<BundleInfo> readBundle(const std::string &path, FileSystem &files);

    /// Every identifier in lower case, in the order of the bundles.
    [[nodiscard]] static std::vector<std::string> allIDs(const std::vector<BundleInfo> &bundles);

    /// The first two pieces of every identifier of `allIDs`.
    [[nodiscard]] static std::unordered_set<std::string> vendors(const std::vector<std::string> &allIDs);

    /// What the bundle has in the Library, largest first. An item that an identifier of `allIDs` claims is no other
    /// application's by its name. Not all the sizes together need be such that they can be added up.
    [[nodiscard]] static std::vector<Leftover> findLeftovers(const BundleInfo &bundle,
                                                             const std::vector<std::string> &allIDs,
                                                             const LibraryListings &listings,
                                                             const Surroundings &surroundings);

    /// What applications of no installed vendor have left, largest group first.
    [[nodiscard]] static std::vector<OrphanGroup> findOrphans(const std::unordered_set<std::string> &vendors,
                                                              const LibraryListings &listings,
                                                              const Surroundings &surroundings);
};

} // namespace corvane
