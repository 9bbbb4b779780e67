#include "cli/cleanup_command.h"

#include <string>
#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "cli/cleanup_json.h"
#include "cli/cleanup_table.h"

namespace corvane {

ExitStatus CleanupCommand::run(Console &console, const Host &host) const
{
    const std::vector<CleanupItem> items = CleanupCatalog::measureAll(host.files);
    if (json) {
        writeCleanupJson(items, console.out);
        return ExitStatus::done;
    }
    const std::vector<AdminCommand> commands = findAdminCommands(host.files);
    const std::string home = host.files.homeFolder();
    writeCleanupTable({items, commands, cleanupTableOf(host.files.systemKind()), home}, console);
    return ExitStatus::done;
}

} // namespace corvane
