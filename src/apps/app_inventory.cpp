#include "apps/app_inventory.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <span>
#include <utility>

#include "apps/leftover_rules.h"
#include "apps/linux_apps.h"
#include "apps/name_pieces.h"
#include "core/allocated_size.h"
#include "core/concurrent_perform.h"
#include "core/scanner.h"
#include "core/words/lower_case.h"
#include "platform/path.h"
#include "platform/patient_open.h"
#include "platform/walk_conditions.h"

namespace corvane {

namespace {

using Item = FolderListing::Item;
using Match = Leftover::Match;
using Naming = LeftoverLocation::Naming;

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

bool isPropertyListName(std::string_view name)
{
    return name.ends_with(".plist") || name.ends_with(".binarycookies");
}

void append(std::vector<const Item *> &into, std::span<const Item> items)
{
    for (const Item &item : items)
        into.push_back(&item);
}

/// The items whose name matches the identifier under the location's naming; longer identifiers are not considered here.
std::vector<const Item *> namedAfter(const std::string &id, Naming naming, const FolderListing &listing)
{
    std::vector<const Item *> found;
    switch (naming) {
    case Naming::plain:
        append(found, listing.named(id));
        append(found, listing.startingWith(id + "."));
        break;
    case Naming::groupContainer: // "group." plus the identifier is covered by this
        return listing.endingWith("." + id);
    case Naming::savedState:
        append(found, listing.named(id + ".savedstate"));
        break;
    case Naming::propertyList:
        append(found, listing.startingWith(id + "."));
        std::erase_if(found, [](const Item *item) { return !isPropertyListName(item->lowered); });
        break;
    }
    return found;
}

/// The identifiers that start with this one and a dot, such as that of an application's helper.
std::vector<std::string> longerIDs(const std::string &id, const std::vector<std::string> &allIDs)
{
    std::vector<std::string> longer;
    std::ranges::copy_if(allIDs, std::back_inserter(longer),
                         [start = id + "."](const std::string &other) { return other.starts_with(start); });
    return longer;
}

/// The name without suffixes that applications append to their identifier.
std::string_view withoutSuffixes(std::string_view name)
{
    for (const std::string_view suffix : {".plist", ".savedstate", ".binarycookies"}) {
        if (name.ends_with(suffix))
            name.remove_suffix(suffix.size());
    }
    return name;
}

std::vector<Orphan> orphansWithoutSizes(const std::unordered_set<std::string> &vendors, const LibraryListings &listings,
                                        const SearchContext &context)
{
    std::vector<Orphan> orphans;
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        if (!leftoverLocations[i].hasOrphans)
            continue;
        for (const Item &item : listings.listings[i].items()) {
            if (context.stop)
                return orphans;
            const std::string_view name = withoutSuffixes(item.lowered);
            if (!isOrphanName(name, vendors))
                continue;
            std::optional<Leftover> leftover =
                leftoverAt(listings.pathOf(i, item), leftoverLocations[i].label, Match::orphan, context);
            if (leftover && isUntouched(*leftover, context.now))
                orphans.push_back({*std::move(leftover), leadingPieces(name, 3)});
        }
    }
    return orphans;
}

/// Loads a Mac's applications.
AppInventory::Result loadBundles(const Host &host, const ProtectedLocations &locations, Time now, const StopFlag &stop)
{
    const SearchContext context{.files = host.files, .locations = locations, .now = now, .stop = stop};
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
                                   .leftovers = AppInventory::findLeftovers(bundle, ids, listings, context)};
    });

    std::unordered_set<std::string> vendors = vendorsOf(ids);
    vendors.insert(leadingPieces(lowerCase(ownID), 2)); // not listed, but installed: its own data is no orphan
    return {.apps = largestFirst(std::move(measured)),
            .orphanGroups = AppInventory::findOrphans(vendors, listings, context)};
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

std::vector<std::string> AppInventory::allIDs(const std::vector<BundleInfo> &bundles)
{
    std::vector<std::string> ids;
    ids.reserve(bundles.size());
    for (const BundleInfo &bundle : bundles)
        ids.push_back(lowerCase(bundle.bundleID));
    return ids;
}

std::vector<Leftover> AppInventory::findLeftovers(const BundleInfo &bundle, const std::vector<std::string> &allIDs,
                                                  const LibraryListings &listings, const SearchContext &context)
{
    std::vector<Leftover> leftovers;
    std::unordered_set<std::string> taken;
    const auto take = [&](std::size_t location, const Item &item, Match match) {
        std::string path = listings.pathOf(location, item);
        if (context.stop || !taken.insert(path).second)
            return;
        std::optional<Leftover> leftover =
            leftoverAt(std::move(path), leftoverLocations[location].label, match, context);
        if (!leftover)
            return;
        leftover->size = allocatedSize(leftover->path, context.files, context.stop);
        leftovers.push_back(*std::move(leftover));
    };

    const std::string id = lowerCase(bundle.bundleID);
    if (id.empty()) // every hidden name would match
        return leftovers;
    const std::vector<std::string> longer = longerIDs(id, allIDs);
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        for (const Item *const item : namedAfter(id, leftoverLocations[i].naming, listings.listings[i])) {
            if (!isClaimed(item->lowered, longer))
                take(i, *item, Match::exact);
        }
    }
    const std::vector<std::string> names = candidateNames({bundle.name, bundle.altName});
    for (std::size_t i = 0; i < leftoverLocations.size(); ++i) {
        if (!leftoverLocations[i].hasNameMatches)
            continue;
        for (const std::string &name : names) {
            for (const Item &item : listings.listings[i].named(name)) {
                if (!isClaimed(item.lowered, allIDs))
                    take(i, item, Match::name);
            }
        }
    }
    std::ranges::stable_sort(leftovers, std::ranges::greater(), &Leftover::size);
    return leftovers;
}

std::vector<OrphanGroup> AppInventory::findOrphans(const std::unordered_set<std::string> &vendors,
                                                   const LibraryListings &listings, const SearchContext &context)
{
    return measuredGroups(orphansWithoutSizes(vendors, listings, context), context);
}

} // namespace corvane
