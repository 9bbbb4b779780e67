#include "apps/listed_items.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_set>

#include "core/checked_add.h"
#include "core/removal.h"

namespace corvane {
namespace {

/// Removes items from a list, keeping its order; returns whether anything has changed.
bool takeFrom(std::vector<Leftover> &items, const Selection &gone)
{
    bool hasChanged = std::erase_if(items, [&](const Leftover &item) { return isCovered(gone, item.path); }) > 0;
    for (Leftover &item : items)
        hasChanged |= takeInside(gone, item.path, item.size);
    if (hasChanged)
        std::ranges::stable_sort(items, std::ranges::greater(), &Leftover::size);
    return hasChanged;
}

bool takeFrom(std::vector<InstalledApp> &apps, const Selection &gone)
{
    bool hasChanged = std::erase_if(apps, [&](const InstalledApp &app) { return isCovered(gone, app.path); }) > 0;
    for (InstalledApp &app : apps) {
        hasChanged |= takeInside(gone, app.path, app.appSize);
        hasChanged |= takeFrom(app.leftovers, gone);
    }
    if (hasChanged)
        std::ranges::stable_sort(apps, std::ranges::greater(), &InstalledApp::sizeWithExactLeftovers);
    return hasChanged;
}

bool takeFrom(std::vector<OrphanGroup> &groups, const Selection &gone)
{
    bool hasChanged = false;
    for (OrphanGroup &group : groups)
        hasChanged |= takeFrom(group.items, gone);
    std::erase_if(groups, [](const OrphanGroup &group) { return group.items.empty(); });
    if (hasChanged)
        std::ranges::stable_sort(groups, std::ranges::greater(), &OrphanGroup::size);
    return hasChanged;
}

} // namespace

bool takeRemoved(AppInventory::Result &inventory, std::span<const SelectedEntry> removed)
{
    Selection gone;
    for (const SelectedEntry &entry : removed)
        gone.emplace(entry.path, entry.size);
    const bool haveAppsChanged = takeFrom(inventory.apps, gone);
    return takeFrom(inventory.orphanGroups, gone) || haveAppsChanged;
}

std::vector<SelectedEntry> orphanEntries(std::span<const OrphanGroup> groups)
{
    std::vector<SelectedEntry> entries;
    for (const OrphanGroup &group : groups) {
        for (const Leftover &item : group.items)
            entries.push_back({item.path, item.size});
    }
    return entries;
}

std::int64_t appTotal(std::span<const InstalledApp> apps)
{
    std::int64_t total = 0;
    std::unordered_set<std::string_view> counted;
    for (const InstalledApp &app : apps) {
        total = checkedAdd(total, app.appSize);
        for (const Leftover &leftover : app.leftovers) {
            if (counted.insert(leftover.path).second)
                total = checkedAdd(total, leftover.size);
        }
    }
    return total;
}

std::int64_t orphanTotal(std::span<const OrphanGroup> groups)
{
    std::int64_t total = 0;
    for (const OrphanGroup &group : groups)
        total = checkedAdd(total, group.size());
    return total;
}

Selection uninstallEntries(const InstalledApp &app, std::span<const Leftover> leftovers)
{
    Selection entries;
    if (app.removeCommand.empty()) {
        entries.emplace(app.path, app.appSize);
        if (!app.launcher.empty())
            entries.emplace(app.launcher, 0);
    }
    for (const Leftover &leftover : leftovers)
        entries.insert_or_assign(leftover.path, leftover.size);
    return entries;
}

SeenItems lookAtUninstall(const InstalledApp &app, std::span<const Leftover> leftovers,
                          const ProtectedLocations &locations, const Host &host)
{
    std::vector<SelectedEntry> entries;
    for (const auto &[path, size] : uninstallEntries(app, leftovers))
        entries.push_back({path, size});
    SeenItems seen = Removal::look(entries, locations, host);
    for (const Leftover &leftover : leftovers) {
        const bool wasFile = leftover.kind == FileNode::Kind::file;
        ItemIdentity &identity = seen.at(leftover.path).identity;
        if (identity.type == (wasFile ? EntryType::directory : EntryType::file))
            identity = {};
    }
    return seen;
}

void followRewrites(SeenItems &seen, const std::string &bundlePath, FileSystem &files)
{
    for (auto &[path, item] : seen) {
        if (path == bundlePath || !item.identity.isKnown())
            continue;
        if (const Expected<ItemFacts> facts = files.facts(path); facts && facts->identity.type == item.identity.type)
            item.identity = facts->identity;
    }
}

} // namespace corvane
