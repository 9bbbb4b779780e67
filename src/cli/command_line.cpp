#include "cli/command_line.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "cli/apps_command.h"
#include "cli/breakdown_command.h"
#include "cli/cleanup_command.h"
#include "cli/duplicates_command.h"
#include "cli/file_lists_command.h"
#include "cli/map_command.h"
#include "cli/meant_command.h"
#include "cli/path_argument.h"
#include "cli/protected_command.h"
#include "cli/remove_command.h"
#include "cli/scan_command.h"
#include "cli/shielded_arguments.h"
#include "cli/snapshots_command.h"
#include "core/nearest_name.h"
#include "platform/environment.h"
#include "platform/host.h"

namespace corvane {

namespace {

constexpr int helpColumns = 26;
constexpr const char *jsonDescription = "Print one JSON document instead of a table";

/// What the parser knows of the commands; `App`s and `Option`s belong to `app`.
struct Commands {
    CLI::App app{"Explains where the space on a disk went and helps to win it back safely.", "corvane-cli"};

    CLI::App *scan = nullptr;
    CLI::Option *scanPath = nullptr;

    CLI::App *map = nullptr;
    CLI::Option *mapPath = nullptr;
    CLI::Option *size = nullptr;
    CLI::Option *svg = nullptr;

    CLI::App *breakdown = nullptr;
    CLI::Option *breakdownScan = nullptr;

    CLI::App *snapshots = nullptr;

    CLI::App *cleanup = nullptr;

    CLI::App *apps = nullptr;

    CLI::App *duplicates = nullptr;
    CLI::Option *duplicatesPath = nullptr;

    CLI::App *large = nullptr;
    CLI::Option *largePath = nullptr;
    CLI::Option *largeMin = nullptr;
    CLI::Option *largeType = nullptr;
    CLI::Option *largeName = nullptr;

    CLI::App *old = nullptr;
    CLI::Option *oldPath = nullptr;
    CLI::Option *oldMonths = nullptr;
    CLI::Option *oldMin = nullptr;
    CLI::Option *oldName = nullptr;

    CLI::App *isProtected = nullptr;
    CLI::Option *protectedPaths = nullptr;

    CLI::App *remove = nullptr;
    CLI::Option *removePaths = nullptr;

    // Bound as `bool`, so that "--yes=no" is refused rather than counted as given.
    bool json = false;
    bool permanently = false;
    bool yes = false;

    Commands();

    [[nodiscard]] std::vector<std::string> names() const;

private:
    CLI::App *add(const std::string &name, const std::string &description, const std::string &example);
    static CLI::Option *addPath(CLI::App &command, const std::string &description);
    static CLI::Option *addMin(CLI::App &command, const std::string &usual);
    static CLI::Option *addName(CLI::App &command);
    static CLI::Option *addPaths(CLI::App &command, const std::string &description);
};

CLI::App *Commands::add(const std::string &name, const std::string &description, const std::string &example)
{
    CLI::App *const command = app.add_subcommand(name, description);
    command->group("Commands");
    command->set_help_flag("-h,--help", "Show this help");
    command->add_flag("--json", json, jsonDescription);
    command->footer("Example:\n  " + example);
    return command;
}

CLI::Option *Commands::addPath(CLI::App &command, const std::string &description)
{
    return command.add_option("PATH")->description(description)->type_name("");
}

CLI::Option *Commands::addMin(CLI::App &command, const std::string &usual)
{
    return command.add_option("--min")
        ->description("Of at least that many bytes, by default " + usual)
        ->type_name("BYTES");
}

CLI::Option *Commands::addName(CLI::App &command)
{
    return command.add_option("--name")->description("With that text in the name, in any case")->type_name("TEXT");
}

CLI::Option *Commands::addPaths(CLI::App &command, const std::string &description)
{
    return addPath(command, description)->required()->expected(1, -1)->allow_extra_args();
}

Commands::Commands()
{
    const std::shared_ptr<CLI::FormatterBase> formatter = app.get_formatter();
    formatter->column_width(helpColumns);
    formatter->label("SUBCOMMAND", "COMMAND");
    formatter->label("Positionals", "Arguments");
    formatter->label("REQUIRED", "");
    app.require_subcommand(0, 1);
    app.set_help_flag("-h,--help", "Show this help");
    app.set_version_flag("-V,--version", "corvane-cli " CORVANE_VERSION, "Show the version");
    app.add_flag("--json", json, jsonDescription);
    app.footer("\"corvane-cli help COMMAND\" tells more of each command; \"corvane-cli PATH\" scans that folder.\n\n"
               "Exit status: 0 done, 1 done with failures, 2 the command line is wrong or a path does not exist.");

    scan = add("scan", "Show where the space of a folder went.", "corvane-cli scan --json ~/Pictures > pictures.json");
    scanPath = addPath(*scan, "The folder; your home folder where none is given");

    map =
        add("map", "Lay a folder out as a treemap.", "corvane-cli map ~/Pictures --size 1600x1000 --svg pictures.svg");
    mapPath = addPath(*map, "The folder")->required();
    size = map->add_option("--size")->description("The map's size in points, by default 900x600")->type_name("WxH");
    svg = map->add_option("--svg")
              ->description("Write the map as a picture; \"-\" is standard output")
              ->type_name("FILE");

    breakdown = add("breakdown", "Explain where the space of the whole disk went.", "corvane-cli breakdown --scan ~");
    breakdownScan = breakdown->add_option("--scan")
                        ->description("Scan this folder first, so that it is explained too")
                        ->type_name("PATH");
    snapshots = add("snapshots", "List the snapshots that the system keeps of the disk.", "corvane-cli snapshots");

    cleanup = add("cleanup", "Measure caches and other folders that could be cleaned up.", "corvane-cli cleanup");

    apps = add("apps", "List the apps, the data they keep, and what deleted ones left behind.", "corvane-cli apps");

    duplicates = add("duplicates", "Find files with the same contents.", "corvane-cli duplicates ~/Pictures");
    duplicatesPath = addPath(*duplicates, "The folder")->required();

    large = add("large", "List the large files of a folder.", "corvane-cli large ~ --min 1000000000 --type video");
    largePath = addPath(*large, "The folder")->required();
    largeMin = addMin(*large, "100000000");
    largeType = large->add_option("--type")->description("Of that type: " + fileTypeNames())->type_name("TYPE");
    largeName = addName(*large);

    old = add("old", "List the files of a folder that were not modified for long.", "corvane-cli old ~ --months 24");
    oldPath = addPath(*old, "The folder")->required();
    oldMonths =
        old->add_option("--months")->description("Not modified for that many months, by default 12")->type_name("N");
    oldMin = addMin(*old, "10000000");
    oldName = addName(*old);

    for (CLI::Option *const option :
         {size, svg, breakdownScan, largeMin, largeType, largeName, oldMonths, oldMin, oldName})
        option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);

    isProtected = add("protected", "Tell which paths would never be removed; they need not exist.",
                      "corvane-cli protected ~/Documents /opt/tool");
    protectedPaths = addPaths(*isProtected, "The paths to judge");

    remove = add("remove", "Move items to the Trash, after asking.", "corvane-cli remove ~/Downloads/old.iso ~/build");
    removePaths = addPaths(*remove, "Files, folders and links; a link is removed itself");
    remove->add_flag("--permanently", permanently, "Delete for good instead of moving to the Trash");
    remove->add_flag("-y,--yes", yes, "Do not ask; needed where there is no terminal");
}

std::vector<std::string> Commands::names() const
{
    std::vector<std::string> names{"help"};
    for (const CLI::App *const command : app.get_subcommands([](const CLI::App *) { return true; }))
        names.push_back(command->get_name());
    return names;
}

std::vector<std::string> valuesOf(const CLI::Option &option)
{
    std::vector<std::string> values;
    std::ranges::transform(option.results(), std::back_inserter(values), unshielded);
    return values;
}

std::optional<std::string> valueOf(const CLI::Option &option)
{
    if (option.results().empty())
        return std::nullopt;
    return unshielded(option.results().back());
}

ExitStatus refuse(const std::string &reason, const CLI::App &command, Console &console)
{
    const std::string name = command.get_parent() != nullptr ? "corvane-cli " + command.get_name() : "corvane-cli";
    console.complain(fmt::format("{}; see \"{} --help\"", reason, name));
    return ExitStatus::refused;
}

/// The first option that a complaint of the parser names.
std::string optionNamedIn(const std::string &text)
{
    const std::size_t start = std::min(text.find("--"), text.size());
    return text.substr(start, text.find_first_of(":= ", start) - start);
}

/// What may have been meant by a mistyped word, for the end of a complaint.
std::string suggestion(std::string_view word, std::span<const std::string> names, std::string_view dashes = {})
{
    const std::optional<std::string> nearest = nearestName(word, names);
    return nearest ? fmt::format(" (did you mean \"{}{}\"?)", dashes, *nearest) : std::string();
}

std::string unknownOption(const std::string &argument, const CLI::App &command)
{
    if (existingItem(argument, systemHost().files))
        return fmt::format("\"{0}\" counts as an option; for the item of that name write \"./{0}\"", argument);
    const std::string option = argument.substr(0, argument.find('='));
    std::vector<std::string> names;
    for (const CLI::Option *const known : command.get_options())
        std::ranges::copy(known->get_lnames(), std::back_inserter(names));
    const std::string_view word =
        std::string_view(option).substr(std::min(option.find_first_not_of('-'), option.size()));
    return fmt::format("unknown option \"{}\"", option) + suggestion(word, names, "--");
}

/// The parser's complaint in one sentence of ours. `command` is the one that was recognised, or the whole program.
std::string reasonOf(const CLI::ParseError &error, const Commands &commands, const CLI::App &command)
{
    // Before what else is wrong: an option that is not known may be the path that is missing.
    const std::vector<std::string> extras = commands.app.remaining(true);
    const auto option = std::ranges::find_if(extras, isOption);
    if (option != extras.end())
        return unknownOption(*option, command);
    if (dynamic_cast<const CLI::ExtrasError *>(&error) != nullptr && !extras.empty()) {
        const std::string extra = unshielded(extras.front());
        if (&command != &commands.app)
            return fmt::format("unexpected argument \"{}\"", extra);
        return fmt::format("unknown command \"{}\"", extra) + suggestion(extra, commands.names());
    }
    const std::string text = error.what();
    if (dynamic_cast<const CLI::RequiredError *>(&error) != nullptr)
        return "a PATH is needed";
    if (dynamic_cast<const CLI::ArgumentMismatch *>(&error) != nullptr)
        return fmt::format("{} needs a value", optionNamedIn(text));
    if (dynamic_cast<const CLI::ConversionError *>(&error) != nullptr)
        return fmt::format("{} takes no value", optionNamedIn(text));
    return text.substr(0, text.find('\n'));
}

ExitStatus runMap(const Commands &commands, Console &console)
{
    MapCommand command{.path = *valueOf(*commands.mapPath), .svgFile = valueOf(*commands.svg), .json = commands.json};
    if (const std::optional<std::string> text = valueOf(*commands.size)) {
        const std::optional<Rect> size = mapSize(*text);
        if (!size)
            return refuse(fmt::format("\"{}\" is not a valid size; use WIDTHxHEIGHT, such as 900x600", *text),
                          *commands.map, console);
        command.size = *size;
    }
    return command.run(console, systemHost());
}

ExitStatus refuseValue(const CLI::Option &option, const std::string &value, const std::string &valid,
                       const CLI::App &command, Console &console)
{
    return refuse(fmt::format("\"{}\" is not a valid {}; use {}", value, option.get_name(), valid), command, console);
}

ExitStatus runLarge(const Commands &commands, Console &console)
{
    LargeCommand command{.path = *valueOf(*commands.largePath), .filter = {}, .json = commands.json};
    if (const std::optional<std::string> text = valueOf(*commands.largeMin)) {
        const std::optional<std::int64_t> bytes = byteCount(*text);
        if (!bytes)
            return refuseValue(*commands.largeMin, *text, "a number of bytes", *commands.large, console);
        command.filter.minSize = *bytes;
    }
    if (const std::optional<std::string> text = valueOf(*commands.largeType)) {
        command.filter.type = fileTypeNamed(*text);
        if (!command.filter.type)
            return refuseValue(*commands.largeType, *text, "one of " + fileTypeNames(), *commands.large, console);
    }
    command.filter.query = valueOf(*commands.largeName).value_or("");
    return command.run(console, systemHost());
}

ExitStatus runOld(const Commands &commands, Console &console)
{
    OldCommand command{.path = *valueOf(*commands.oldPath), .filter = {}, .json = commands.json};
    if (const std::optional<std::string> text = valueOf(*commands.oldMonths)) {
        const std::optional<int> months = monthCount(*text);
        if (!months)
            return refuseValue(*commands.oldMonths, *text, "a number of months", *commands.old, console);
        command.filter.months = *months;
    }
    if (const std::optional<std::string> text = valueOf(*commands.oldMin)) {
        const std::optional<std::int64_t> bytes = byteCount(*text);
        if (!bytes)
            return refuseValue(*commands.oldMin, *text, "a number of bytes", *commands.old, console);
        command.filter.minSize = *bytes;
    }
    command.filter.query = valueOf(*commands.oldName).value_or("");
    return command.run(console, systemHost());
}

/// Whether the command is about the home folder, or judges by it.
bool needsHome(const Commands &commands)
{
    return (commands.scan->parsed() && commands.scanPath->results().empty()) || commands.breakdown->parsed() ||
           commands.cleanup->parsed() || commands.apps->parsed() || commands.isProtected->parsed() ||
           commands.remove->parsed();
}

ExitStatus runCommand(const Commands &commands, Console &console)
{
    if (const std::optional<std::string> complaint = Environment::homeComplaint(); complaint && needsHome(commands)) {
        console.complain(*complaint);
        return ExitStatus::refused;
    }
    if (commands.scan->parsed()) {
        const ScanCommand command{.path = valueOf(*commands.scanPath), .json = commands.json};
        return command.run(console, systemHost());
    }
    if (commands.map->parsed())
        return runMap(commands, console);
    if (commands.breakdown->parsed()) {
        const BreakdownCommand command{.scanPath = valueOf(*commands.breakdownScan), .json = commands.json};
        return command.run(console, systemHost());
    }
    if (commands.snapshots->parsed())
        return SnapshotsCommand{.json = commands.json}.run(console, systemHost());
    if (commands.cleanup->parsed())
        return CleanupCommand{.json = commands.json}.run(console, systemHost());
    if (commands.apps->parsed())
        return AppsCommand{.json = commands.json}.run(console, systemHost());
    if (commands.duplicates->parsed()) {
        const DuplicatesCommand command{.path = *valueOf(*commands.duplicatesPath), .json = commands.json};
        return command.run(console, systemHost());
    }
    if (commands.large->parsed())
        return runLarge(commands, console);
    if (commands.old->parsed())
        return runOld(commands, console);
    if (commands.isProtected->parsed()) {
        const ProtectedCommand command{.paths = valuesOf(*commands.protectedPaths), .json = commands.json};
        return command.run(console, systemHost());
    }
    if (commands.remove->parsed()) {
        const RemoveCommand command{.paths = valuesOf(*commands.removePaths),
                                    .permanently = commands.permanently,
                                    .yes = commands.yes,
                                    .json = commands.json};
        return command.run(console, systemHost());
    }
    return refuse("no command given", commands.app, console);
}

} // namespace

ExitStatus runCommandLine(const std::vector<std::string> &arguments, Console &console)
{
    Commands commands;
    std::vector<std::string> shielded =
        shieldedArguments(withMeantCommand(arguments, commands.names(), systemHost().files));
    std::ranges::reverse(shielded); // the parser takes them from the back
    try {
        commands.app.parse(shielded);
    } catch (const CLI::CallForVersion &version) {
        console.out.write(version.what());
        console.out.write('\n');
        return ExitStatus::done;
    } catch (const CLI::CallForHelp &) {
        console.out.write(commands.app.help());
        return ExitStatus::done;
    } catch (const CLI::ParseError &error) {
        const std::vector<CLI::App *> parsed = commands.app.get_subcommands();
        const CLI::App &command = parsed.empty() ? commands.app : *parsed.front();
        return refuse(reasonOf(error, commands, command), command, console);
    }
    return runCommand(commands, console);
}

} // namespace corvane
