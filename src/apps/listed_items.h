#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "apps/app_inventory.h"
#include "core/selected_entry.h"
#include "core/selection.h"

namespace corvane {

// What is asked of a loaded inventory, and of the items that it lists.

/// Takes what was removed out of the applications, their leftovers and the orphans, until they are loaded again;
/// whether anything has changed.
bool takeRemoved(AppInventory::Result &inventory, std::span<const SelectedEntry> removed);

/// The items of all groups, in the order of the groups.
[[nodiscard]] std::vector<SelectedEntry> orphanEntries(std::span<const OrphanGroup> groups);

/// What the applications and their data come to. Where two of them share an item, it counts once.
[[nodiscard]] std::int64_t appTotal(std::span<const InstalledApp> apps);

/// What the groups come to.
[[nodiscard]] std::int64_t orphanTotal(std::span<const OrphanGroup> groups);

/// What is removed with an application: its bundle, or what lies in the home in its place, and those leftovers; the
/// leftovers alone of one that is removed by a command. A path that stands there twice has its last size.
[[nodiscard]] Selection uninstallEntries(const InstalledApp &app, std::span<const Leftover> leftovers);

/// What is at each of those paths now. A leftover that is no longer of the listed kind is not known: a file may be
/// removed as one, a folder that has taken its place may not. Asks the disk.
[[nodiscard]] SeenItems lookAtUninstall(const InstalledApp &app, std::span<const Leftover> leftovers,
                                        const ProtectedLocations &locations, const Host &host);

/// Takes over what an application has written anew while it quit, as it does with its preferences: the items besides
/// its bundle that are of the same type as before. Asks the disk.
void followRewrites(SeenItems &seen, const std::string &bundlePath, FileSystem &files);

} // namespace corvane
