#pragma once

#include "apps/app_inventory.h"
#include "cli/output.h"
#include "core/calendar.h"

namespace corvane {

/// The inventory as one JSON object, in its order.
void writeAppsJson(const AppInventory::Result &inventory, Time now, const Calendar &calendar, Output &out);

} // namespace corvane
