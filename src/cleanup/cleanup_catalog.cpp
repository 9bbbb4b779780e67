#include "cleanup/cleanup_catalog.h"

#include <algorithm>
#include <utility>

#include "cleanup/cleanup_places.h"
#include "core/allocated_size.h"
#include "core/checked_add.h"
#include "core/concurrent_perform.h"
#include "core/foreign_sum.h"
#include "core/item_kind.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/words/system_words.h"
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

namespace {

/// Collects the entries of one row.
class RowMeasurement {
public:
    RowMeasurement(const CleanupPlaces &places, FileSystem &files, const StopFlag &stop)
        : m_countedElsewhere(places.countedElsewhere()), m_files(files), m_stop(stop)
    {
    }

    [[nodiscard]] CleanupItem measure(const CleanupPlaces::Row &row)
    {
        const WalkConditions conditions;
        CleanupItem item{.def = row.def, .entries = {}, .accessible = row.isListed, .path = row.path};
        item.exists = !row.places.empty() || !row.isListed;
        bool isListed = row.places.empty();
        for (const CleanupPlaces::Place &place : row.places)
            isListed |= add(place);
        item.accessible &= isListed;
        if (!item.accessible)
            item.owner = ownerText(wordsOf(m_files.systemKind()).belongsTo, item.path, m_files);
        std::ranges::stable_sort(m_entries, std::ranges::greater(), &CleanupEntry::size);
        item.entries = std::move(m_entries);
        return item;
    }

private:
    /// Returns whether the place could be listed.
    bool add(const CleanupPlaces::Place &place)
    {
        if (!place.name.empty() && !m_countedElsewhere.anyBeneath(place.realPath)) {
            addEntry({place.path, 0, FileNode::Kind::directory, place.name});
            return true;
        }
        auto folder = m_files.openFolder(place.path);
        return folder && addItems(**folder, place.path, place.realPath, place.name);
    }

    /// Adds the items in a folder named `name` in the entries; returns whether it could be listed.
    bool addItems(OpenFolder &folder, const std::string &path, const std::string &realPath, const std::string &name)
    {
        std::vector<CleanupEntry> children;
        if (!folder.list([&](const DirectoryEntry &entry) {
                if (std::ranges::find(CleanupCatalog::ignoredNames, entry.name) == CleanupCatalog::ignoredNames.end())
                    children.push_back({joined(path, entry.name), 0, kindOf(entry.type, entry.isPackage),
                                        name.empty() ? std::string() : joined(name, entry.name)});
                return m_stop || children.size() > Scanner::keptEntriesLimit ? Listing::stop : Listing::goOn;
            }))
            return false;
        for (CleanupEntry &child : children) {
            if (m_stop)
                break;
            const std::string childName(lastPathComponent(child.path));
            const std::string realChild = joined(realPath, childName);
            if (m_countedElsewhere.holds(realChild))
                continue;
            if (!m_countedElsewhere.anyBeneath(realChild)) {
                addEntry(std::move(child));
            } else if (auto inside = folder.openChild(childName)) {
                addItems(**inside, child.path, realChild, name.empty() ? childName : child.name);
            }
        }
        return true;
    }

    void addEntry(CleanupEntry entry)
    {
        entry.size = allocatedSize(entry.path, m_files, m_stop);
        if (entry.size > 0 && addForeign(m_total, entry.size))
            m_entries.push_back(std::move(entry));
    }

    const ExcludedItems &m_countedElsewhere;
    FileSystem &m_files;
    const StopFlag &m_stop;
    std::vector<CleanupEntry> m_entries;
    std::int64_t m_total = 0;
};

} // namespace

CleanupItem CleanupCatalog::measure(const CleanupDefinition &definition, FileSystem &files, const StopFlag &stop)
{
    const CleanupPlaces places(files);
    return RowMeasurement(places, files, stop).measure(places.rowOf(definition));
}

std::vector<CleanupItem> CleanupCatalog::measureAll(FileSystem &files, const StopFlag &stop)
{
    const CleanupPlaces places(files);
    std::vector<CleanupItem> items(places.rows().size());
    concurrentPerform(items.size(),
                      [&](std::size_t i) { items[i] = RowMeasurement(places, files, stop).measure(places.rows()[i]); });
    sort(items);
    return items;
}

bool CleanupCatalog::isOfEverySystem(const CleanupItem &item)
{
    return std::ranges::any_of(definitions, [&](const CleanupDefinition &row) { return &row == item.def; });
}

void CleanupCatalog::sort(std::vector<CleanupItem> &items)
{
    const auto own = std::stable_partition(items.begin(), items.end(), isOfEverySystem);
    std::ranges::stable_sort(items.begin(), own, std::ranges::greater(), &CleanupItem::total);
    std::ranges::stable_sort(own, items.end(), std::ranges::greater(), &CleanupItem::total);
}

} // namespace corvane
