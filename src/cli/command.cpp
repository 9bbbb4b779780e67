#include "cli/command.h"

#include "cli/commands/commands.h"

namespace corvane {

std::span<const Command> allCommands()
{
    static const std::vector<Command> commands{
        scanCommand(),       mapCommand(),   breakdownCommand(), snapshotsCommand(), cleanupCommand(), appsCommand(),
        duplicatesCommand(), largeCommand(), oldCommand(),       protectedCommand(), removeCommand(),
    };
    return commands;
}

std::span<const Option> commonOptions()
{
    static const std::vector<Option> options{
        {.name = "json", .help = "Print one JSON document instead of a table"},
        {.name = "units",
         .value = "UNITS",
         .help = "Show sizes in decimal units (KB, the default), binary units (KiB) or bytes"},
        {.name = "color", .value = "WHEN", .help = "Use colors: auto (on a terminal, the default), always or never"},
        {.name = "no-progress", .help = "Show no progress on the terminal"},
        {.name = "help", .help = "Show this help", .letter = 'h'},
    };
    return options;
}

std::span<const Option> programOptions()
{
    static const std::vector<Option> options{{.name = "version", .help = "Show the version", .letter = 'V'}};
    return options;
}

} // namespace corvane
