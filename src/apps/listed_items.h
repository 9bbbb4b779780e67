#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "apps/app_inventory.h"
#include "core/selected_entry.h"
#include "core/selection.h"

namespace corvane {

// Queries on a loaded inventory and its items.

/// Drops removed items from the applications, their leftovers and the orphans, until the next load; returns whether
/// anything has changed.
bool takeRemoved(AppInventory::Result &inventory, std::span<const SelectedEntry> removed);

/// The items of all groups, in the order of the groups.
[[nodiscard]] std::vector<SelectedEntry> orphanEntries(std::span<const OrphanGroup> groups);

/// The total of the applications and their data. An item shared by two of them counts once.
[[nodiscard]] std::int64_t appTotal(std::span<const InstalledApp> apps);

/// The total of the groups.
[[nodiscard]] std::int64_t orphanTotal(std::span<const OrphanGroup> groups);

/// The entries to remove with an application: its bundle, or its file or folder in the home folder, plus those
/// leftovers; only the leftovers if the application is removed by a command. If a path occurs twice, the last size
/// counts.
[[nodiscard]] Selection uninstallEntries(const InstalledApp &app, std::span<const Leftover> leftovers);

/// What is at each of those paths now. A leftover that has changed its kind counts as unknown: a folder that replaced a
/// file may not be removed in its place. Accesses the disk.
[[nodiscard]] SeenItems lookAtUninstall(const InstalledApp &app, std::span<const Leftover> leftovers,
                                        const ProtectedLocations &locations, const Host &host);

/// Accepts files that an application rewrote while it quit, such as its preferences: updates the identity of items
/// other than its bundle if their type is unchanged. Accesses the disk.
void followRewrites(SeenItems &seen, const std::string &bundlePath, FileSystem &files);

} // namespace corvane
