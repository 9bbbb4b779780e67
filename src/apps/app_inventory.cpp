#include "apps/app_inventory.h"

#include <algorithm>
#include <utility>

#include "apps/leftover_rules.h"
#include "apps/linux_apps.h"
#include "core/allocated_size.h"
#include "core/checked_add.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/scanner.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

// Real applications have at most a few hundred kilobytes.
constexpr std::size_t longestInfoPlist = 4UL * 1024 * 1024;

// Never offer the system's own applications or this one.
constexpr std::string_view systemPrefix = "com.apple.";
constexpr std::string_view ownID = CORVANE_APP_ID;

bool isBundleName(std::string_view name)
{
    return nameExtension(name) == "app";
}

struct Child {
    std::string name;
    bool isBundle = false;
};

/// The bundles and folders directly inside a folder; none if the folder has no end.
std::vector<Child> childrenOf(OpenFolder &folder, const StopFlag &stop)
{
    std::vector<Child> children;
    std::size_t count = 0;
    const auto take = [&](const DirectoryEntry &entry) {
        const bool isBundle = isBundleName(entry.name);
        if (isBundle || entry.type == EntryType::directory)
            children.push_back({std::string(entry.name), isBundle});
        return stop || ++count > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
    };
    // Keep what was listed before a failure: the data of an application missed here would count as orphaned.
    if (const auto listed = folder.list(take); !listed && listed.error().code == std::errc::operation_canceled)
        children.clear();
    return children;
}

void appendBundlesIn(OpenFolder &root, const std::string &path, const StopFlag &stop, std::vector<std::string> &bundles)
{
    for (const Child &child : childrenOf(root, stop)) {
        const std::string childPath = joined(path, child.name);
        if (child.isBundle) {
            bundles.push_back(childPath);
            continue;
        }
        if (stop || bundles.size() > Scanner::keptEntriesLimit)
            return;
        const auto folder = openPatiently([&] { return root.openChild(child.name); });
        if (!folder)
            continue;
        for (const Child &inside : childrenOf(**folder, stop)) {
            if (inside.isBundle)
                bundles.push_back(joined(childPath, inside.name));
        }
    }
}

/// Reads the bundles and keeps those that may be offered, in the same order.
std::vector<BundleInfo> readBundles(const std::vector<std::string> &paths, FileSystem &files, const StopFlag &stop)
{
    std::vector<std::optional<BundleInfo>> read(paths.size());
    concurrentPerform(paths.size(), [&](std::size_t i) {
        if (!stop)
            read[i] = AppInventory::readBundle(paths[i], files);
    });
    std::vector<BundleInfo> bundles;
    for (std::optional<BundleInfo> &bundle : read) {
        if (bundle)
            bundles.push_back(*std::move(bundle));
    }
    return bundles;
}

/// Loads a Mac's applications.
AppInventory::Result loadBundles(const Host &host, const ProtectedLocations &locations, Time now, const StopFlag &stop)
{
    const AppInventory::Surroundings surroundings{
        .files = host.files, .locations = locations, .now = now, .stop = stop};
    const std::vector<BundleInfo> bundles =
        readBundles(AppInventory::findAppURLs(locations.home(), host.files, stop), host.files, stop);
    const std::vector<std::string> ids = AppInventory::allIDs(bundles);
    const LibraryListings listings = LibraryListings::read(locations.home(), host.files, stop);

    std::vector<std::optional<InstalledApp>> measured(bundles.size());
    concurrentPerform(bundles.size(), [&](std::size_t i) {
        if (stop)
            return;
        const BundleInfo &bundle = bundles[i];
        measured[i] = InstalledApp{.path = bundle.path,
                                   .name = bundle.name,
                                   .bundleID = bundle.bundleID,
                                   .version = bundle.version,
                                   .isAppStore = bundle.isAppStore,
                                   .appSize = allocatedSize(bundle.path, host.files, stop),
                                   .lastUsed = host.applications.lastUsed(bundle.path),
                                   .leftovers = AppInventory::findLeftovers(bundle, ids, listings, surroundings)};
    });

    return {.apps = largestFirst(std::move(measured)),
            .orphanGroups = AppInventory::findOrphans(AppInventory::vendors(ids), listings, surroundings)};
}

} // namespace

std::vector<std::string> AppInventory::findAppURLs(const std::string &home, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    std::vector<std::string> bundles;
    FolderIdentity first;
    for (const std::string &root : {std::string("/Applications"), joined(home, "Applications")}) {
        const auto folder = openPatiently([&] { return files.openFolder(root); });
        if (!folder || (*folder)->identity() == first)
            continue;
        first = (*folder)->identity();
        appendBundlesIn(**folder, root, stop, bundles);
    }
    return bundles;
}

std::optional<BundleInfo> AppInventory::readBundle(const std::string &path, FileSystem &files)
{
    const WalkConditions conditions;
    const auto infoPlist =
        openPatiently([&] { return files.readFile(joined(path, "Contents/Info.plist"), longestInfoPlist); });
    if (!infoPlist)
        return std::nullopt;
    std::optional<BundleInfo> bundle = BundleInfo::parse(path, *infoPlist);
    if (!bundle || bundle->bundleID.starts_with(systemPrefix) || bundle->bundleID == ownID)
        return std::nullopt;
    bundle->isAppStore = files.exists(joined(path, "Contents/_MASReceipt/receipt"));
    return bundle;
}

AppInventory::Result AppInventory::load(const Host &host, const ProtectedLocations &locations, Time now,
                                        const StopFlag &stop)
{
    return host.files.systemKind() == SystemKind::mac ? loadBundles(host, locations, now, stop)
                                                      : loadLinuxApps(host, locations, now, stop);
}

std::vector<InstalledApp> largestFirst(std::vector<std::optional<InstalledApp>> measured)
{
    std::vector<InstalledApp> apps;
    ForeignSum sum;
    for (std::optional<InstalledApp> &app : measured) {
        if (!app)
            continue;
        app->appSize = sum.counted(app->appSize);
        for (Leftover &leftover : app->leftovers)
            leftover.size = sum.counted(leftover.size);
        apps.push_back(*std::move(app));
    }
    const auto size = [](const InstalledApp &app) { return checkedAdd(app.appSize, app.exactLeftoverSize()); };
    std::ranges::stable_sort(apps, std::ranges::greater(), size);
    return apps;
}

} // namespace corvane
