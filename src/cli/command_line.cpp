#include "cli/command_line.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "cli/argument_reader.h"
#include "cli/argument_values.h"
#include "cli/help.h"
#include "core/words/figures.h"
#include "platform/environment.h"
#include "platform/host.h"

namespace corvane {

namespace {

constexpr std::size_t mostHelpColumns = 80;

ExitStatus refuse(std::string_view reason, const Command *command, Console &console)
{
    const std::string name = command != nullptr ? fmt::format("corvane-cli {}", command->name) : "corvane-cli";
    console.complain(fmt::format("{}; see \"{} --help\"", reason, name));
    return ExitStatus::refused;
}

bool needsHome(const Command &command, const Arguments &arguments)
{
    return command.home == Command::Home::needed ||
           (command.home == Command::Home::neededWithoutPath && arguments.paths.empty());
}

std::optional<ByteUnits> unitsNamed(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, ByteUnits>, 3> choices{{
        {"decimal", ByteUnits::decimal},
        {"binary", ByteUnits::binary},
        {"bytes", ByteUnits::bytes},
    }};
    return choiceNamed(text, choices);
}

std::optional<Console::ColorUse> colorUseNamed(std::string_view text)
{
    using ColorUse = Console::ColorUse;
    constexpr std::array<std::pair<std::string_view, ColorUse>, 3> choices{{
        {"auto", ColorUse::automatic},
        {"always", ColorUse::always},
        {"never", ColorUse::never},
    }};
    return choiceNamed(text, choices);
}

/// Applies the options accepted by every command.
void applyCommonOptions(const Arguments &arguments, Console &console)
{
    if (const auto units = arguments.value("units", unitsNamed, "decimal, binary or bytes"))
        useByteUnits(*units);
    if (const auto use = arguments.value("color", colorUseNamed, "auto, always or never"))
        console.setColorUse(*use);
    if (arguments.has("no-progress"))
        console.hideProgress();
}

ExitStatus show(std::string_view text, Console &console)
{
    console.out.write(text);
    return ExitStatus::done;
}

} // namespace

ExitStatus runCommandLine(const std::vector<std::string> &arguments, Console &console)
{
    const Host &host = systemHost();
    const CommandLine line = readArguments(arguments, host.files);
    if (line.fault)
        return refuse(*line.fault, line.command, console);
    if (line.wish == CommandLine::Wish::version)
        return show("corvane-cli " CORVANE_VERSION "\n", console);
    if (line.wish == CommandLine::Wish::help) {
        const std::size_t columns = std::min(console.outColumns(), mostHelpColumns);
        return show(line.command != nullptr ? commandHelp(*line.command, columns) : programHelp(columns), console);
    }
    if (const std::optional<std::string> complaint = Environment::homeComplaint();
        complaint && needsHome(*line.command, line.arguments)) {
        console.complain(*complaint);
        return ExitStatus::refused;
    }
    try {
        applyCommonOptions(line.arguments, console);
        return line.command->run(line.arguments, console, host);
    } catch (const UsageError &error) {
        return refuse(error.what(), line.command, console);
    }
}

} // namespace corvane
