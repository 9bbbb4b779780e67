#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/arguments.h"
#include "cli/console.h"
#include "cli/exit_status.h"
#include "platform/host.h"

namespace corvane {

/// How many paths a command takes, and their description in the help.
struct PathArguments {
    std::string_view help = {};
    std::size_t least = 0;
    std::size_t most = 0;

    static constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();
};

/// A command of the program.
struct Command {
    std::string_view name;
    std::string_view summary; ///< one sentence
    PathArguments paths = {};
    std::vector<Option> options = {}; ///< in addition to `commonOptions`
    std::string_view example;

    /// Whether the command works on the home folder, or needs to know it.
    enum class Home { notNeeded, needed, neededWithoutPath };
    Home home = Home::notNeeded;

    /// May throw a `UsageError`, but only before it has done anything.
    ExitStatus (*run)(const Arguments &arguments, Console &console, const Host &host);
};

/// All commands in the order of the help. To add one, create a file in commands/ and add it to this list.
[[nodiscard]] std::span<const Command> allCommands();

/// Options accepted by every command, also in front of the command.
[[nodiscard]] std::span<const Option> commonOptions();

/// Options accepted only without a command.
[[nodiscard]] std::span<const Option> programOptions();

} // namespace corvane
