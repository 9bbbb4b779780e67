#include "cli/apps_command.h"

#include "apps/app_inventory.h"
#include "cli/apps_json.h"
#include "cli/apps_table.h"

namespace corvane {

ExitStatus AppsCommand::run(Console &console, const Host &host, const ProtectedLocations &locations) const
{
    const Time now = currentTime();
    const AppInventory::Result inventory = AppInventory::load(host, locations, now);
    if (json)
        writeAppsJson(inventory, now, systemCalendar(), console.out);
    else
        writeAppsTable(inventory, now, systemCalendar(), console);
    return ExitStatus::done;
}

} // namespace corvane
