#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command.h"
#include "platform/file_system.h"

namespace corvane {

/// A parsed command line.
struct CommandLine {
    enum class Wish { run, help, version };

    Wish wish = Wish::run;
    const Command *command = nullptr; ///< named or implied; null if there is none
    Arguments arguments;
    std::optional<std::string> fault; ///< the error message, without a final period
};

/// Parses the arguments (bytes, without the program's name). A path instead of a command is scanned, and "help COMMAND"
/// means "COMMAND --help"; a command takes precedence over an item of the same name in the current folder. Nothing
/// after "--" is an option. An option's value may begin with one dash, unless it is an option of the command: "-1" is a
/// value, "-h" and "--files" are not.
///
/// A file can have any name, so no other characters are special: "[a,b]", "++", "%x" and "@x" are paths.
[[nodiscard]] CommandLine readArguments(const std::vector<std::string> &arguments, FileSystem &files);

} // namespace corvane
