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

/// How many paths a command takes, and what the help says of them.
struct PathArguments {
    std::string_view help = {};
    std::size_t least = 0;
    std::size_t most = 0;

    static constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();
};

/// A command of the program: what it is called, what it takes, and what it does.
struct Command {
    std::string_view name;
    std::string_view summary; ///< one sentence
    PathArguments paths = {};
    std::vector<Option> options = {}; ///< beside `commonOptions`
    std::string_view example;

    /// Whether it is about the home folder, or judges by it.
    enum class Home { notNeeded, needed, neededWithoutPath };
    Home home = Home::notNeeded;

    /// May throw a `UsageError` before anything is done.
    ExitStatus (*run)(const Arguments &arguments, Console &console, const Host &host);
};

/// Every command in the order of the help. A new one is a file of its own in commands/ and a line here.
[[nodiscard]] std::span<const Command> allCommands();

/// What every command takes, and what stands before a command.
[[nodiscard]] std::span<const Option> commonOptions();

/// What is taken only where no command is named.
[[nodiscard]] std::span<const Option> programOptions();

} // namespace corvane
