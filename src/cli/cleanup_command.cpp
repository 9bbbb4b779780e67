#include "cli/cleanup_command.h"

#include "cleanup/cleanup_catalog.h"
#include "cli/cleanup_json.h"
#include "cli/cleanup_table.h"

namespace corvane {

ExitStatus CleanupCommand::run(Console &console, const Host &host) const
{
    const std::vector<CleanupItem> items = CleanupCatalog::measureAll(host.files);
    if (json)
        writeCleanupJson(items, console.out);
    else
        writeCleanupTable(items, host.files.homeFolder(), console);
    return ExitStatus::done;
}

} // namespace corvane
