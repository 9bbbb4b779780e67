#pragma once

#include "apps/app_inventory.h"
#include "cli/console.h"
#include "core/calendar.h"

namespace corvane {

/// The inventory as one JSON object, in its order.
void writeAppsJson(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Output &out);

/// Writes the inventory as a table: each application with its own size and that of its exact leftovers, and each group
/// of leftovers of deleted applications.
void writeAppsTable(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Console &console);

} // namespace corvane
