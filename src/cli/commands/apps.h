#pragma once

#include "apps/app_inventory.h"
#include "cli/console.h"
#include "core/calendar.h"

namespace corvane {

/// Writes the inventory as one JSON object with the lists "apps" and "orphanGroups", in the inventory's order. `now`
/// and `calendar` define how long an application has not been used.
void writeAppsJson(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Output &out);

/// Writes the inventory as a table, largest first: each application with its own size and that of its data, then each
/// group of leftovers of deleted applications in the inventory's order.
void writeAppsTable(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Console &console);

} // namespace corvane
