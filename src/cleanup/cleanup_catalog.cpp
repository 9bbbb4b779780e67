#include "cleanup/cleanup_catalog.h"

#include <algorithm>
#include <optional>

#include "cleanup/place_rule.h"
#include "core/allocated_size.h"
#include "core/checked_add.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/item_kind.h"
#include "core/scanner.h"
#include "platform/path.h"
#include "platform/walk_conditions.h"

namespace corvane {

const std::array<CleanupDefinition, 18> CleanupCatalog::definitions{{
    {"caches", "App Caches", "Temporary data apps rebuild automatically. Apps may feel a bit slower on first launch.",
     "archivebox", CleanupTint::blue, CleanupRisk::safe, CleanupGroup::system, "Library/Caches"},
    {"logs", "Logs", "Diagnostic logs written by apps and the system.", "doc.text.magnifyingglass", CleanupTint::gray,
     CleanupRisk::safe, CleanupGroup::system, "Library/Logs"},
    {"mail", "Mail Attachments", "Attachments Mail downloaded when you opened them. They stay available in Mail.",
     "paperclip", CleanupTint::cyan, CleanupRisk::safe, CleanupGroup::system,
     "Library/Containers/com.apple.mail/Data/Library/Mail Downloads"},
    {"trash", "Trash", "Items already in your Trash. Removing them here deletes them permanently.", "trash",
     CleanupTint::red, CleanupRisk::safe, CleanupGroup::system, ".Trash"},
    {"deriveddata", "Xcode DerivedData", "Build products & indexes. Xcode regenerates them on the next build.",
     "hammer", CleanupTint::blue, CleanupRisk::safe, CleanupGroup::developer, "Library/Developer/Xcode/DerivedData"},
    {"devicesupport", "iOS Device Support", "Debug symbols for devices you've connected. Re-downloaded when needed.",
     "iphone", CleanupTint::indigo, CleanupRisk::safe, CleanupGroup::developer,
     "Library/Developer/Xcode/iOS DeviceSupport"},
    {"archives", "Xcode Archives", "Old app archives. Keep the ones you may need to re-symbolicate crashes.",
     "shippingbox", CleanupTint::purple, CleanupRisk::review, CleanupGroup::developer,
     "Library/Developer/Xcode/Archives"},
    {"simcaches", "Simulator Caches", "CoreSimulator caches, safe to clear.", "ipad.and.iphone", CleanupTint::teal,
     CleanupRisk::safe, CleanupGroup::developer, "Library/Developer/CoreSimulator/Caches"},
    {"simdevices", "Simulator Devices",
     "Simulators and their app data. Tip: `xcrun simctl delete unavailable` removes only stale ones.",
     "rectangle.on.rectangle", CleanupTint::teal, CleanupRisk::review, CleanupGroup::developer,
     "Library/Developer/CoreSimulator/Devices"},
    {"gradlecaches", "Gradle Caches", "Downloaded dependencies & transforms. Re-downloaded on the next build.",
     "cube.box", CleanupTint::green, CleanupRisk::safe, CleanupGroup::developer, ".gradle/caches"},
    {"gradlewrapper", "Gradle Wrapper Distributions", "Old Gradle versions downloaded by projects' wrappers.",
     "square.stack.3d.down.right", CleanupTint::green, CleanupRisk::safe, CleanupGroup::developer,
     ".gradle/wrapper/dists"},
    {"androidimages", "Android System Images",
     "Emulator system images in your Android SDK. Remove versions you don't test on.", "cpu", CleanupTint::mint,
     CleanupRisk::review, CleanupGroup::developer, "Library/Android/sdk/system-images"},
    {"avd", "Android Virtual Devices", "Emulator devices and their disks/snapshots.", "smartphone", CleanupTint::mint,
     CleanupRisk::review, CleanupGroup::developer, ".android/avd"},
    {"npm", "npm Cache", "npm's download cache. Safe to clear; packages re-download on install.", "shippingbox.circle",
     CleanupTint::red, CleanupRisk::safe, CleanupGroup::developer, ".npm/_cacache"},
    {"pnpm", "pnpm Store", "Shared pnpm package store.", "shippingbox.circle", CleanupTint::orange, CleanupRisk::safe,
     CleanupGroup::developer, "Library/pnpm/store"},
    {"docker", "Docker Disk",
     "Docker's VM disk. Deleting wipes all images & containers — prefer `docker system prune`.", "externaldrive",
     CleanupTint::blue, CleanupRisk::review, CleanupGroup::developer, "Library/Containers/com.docker.docker/Data/vms"},
    {"downloads", "Downloads", "Everything in your Downloads folder — installers and one-off files pile up here.",
     "arrow.down.circle", CleanupTint::blue, CleanupRisk::review, CleanupGroup::personal, "Downloads"},
    {"backups", "iPhone & iPad Backups",
     "Local device backups made by Finder. Make sure you have a newer backup elsewhere.", "iphone.gen3",
     CleanupTint::gray, CleanupRisk::review, CleanupGroup::personal, "Library/Application Support/MobileSync/Backup"},
}};

std::string_view rawValue(CleanupRisk risk)
{
    switch (risk) {
    case CleanupRisk::safe:
        return "safe";
    case CleanupRisk::review:
        return "review";
    }
    return {};
}

std::string_view rawValue(CleanupGroup group)
{
    switch (group) {
    case CleanupGroup::system:
        return "system";
    case CleanupGroup::developer:
        return "developer";
    case CleanupGroup::personal:
        return "personal";
    }
    return {};
}

std::int64_t CleanupItem::total() const
{
    std::int64_t sum = 0;
    for (const CleanupEntry &entry : entries)
        sum = checkedAdd(sum, entry.size);
    return sum;
}

CleanupItem CleanupCatalog::measure(const CleanupDefinition &definition, FileSystem &files, const StopFlag &stop)
{
    const WalkConditions conditions;
    CleanupItem item{.def = &definition, .entries = {}, .exists = false};
    const std::optional<std::string> place = PlaceRule(files).placeFor(definition.relativePath);
    if (!place)
        return item;
    item.path = *place;
    item.exists = files.exists(item.path);
    if (!item.exists)
        return item;

    std::vector<CleanupEntry> children;
    auto opened = files.openFolder(item.path);
    if (!opened || !(*opened)->list([&](const DirectoryEntry &entry) {
            if (std::ranges::find(ignoredNames, entry.name) == ignoredNames.end())
                children.push_back({joined(item.path, entry.name), 0, kindOf(entry.type, entry.isPackage)});
            return stop || children.size() > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
        })) {
        item.accessible = false;
        return item;
    }
    std::int64_t total = 0;
    for (CleanupEntry &child : children) {
        if (stop)
            break;
        child.size = allocatedSize(child.path, files, stop);
        if (child.size > 0 && addForeign(total, child.size))
            item.entries.push_back(std::move(child));
    }
    std::ranges::stable_sort(item.entries, std::ranges::greater(), &CleanupEntry::size);
    return item;
}

std::vector<CleanupItem> CleanupCatalog::measureAll(FileSystem &files, const StopFlag &stop)
{
    std::vector<CleanupItem> items(definitions.size());
    concurrentPerform(definitions.size(), [&](std::size_t i) { items[i] = measure(definitions[i], files, stop); });
    std::ranges::stable_sort(items, std::ranges::greater(), &CleanupItem::total);
    return items;
}

} // namespace corvane
