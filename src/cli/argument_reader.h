#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/command.h"
#include "platform/file_system.h"

namespace corvane {

/// A command line that has been read.
struct CommandLine {
    enum class Wish { run, help, version };

    Wish wish = Wish::run;
    const Command *command = nullptr; ///< the one that was named or meant; null where there is none
    Arguments arguments;
    std::optional<std::string> fault; ///< what is wrong, in a sentence without its end
};

/// Reads the arguments (bytes, without the program's name). A path in the place of a command is one to scan, and
/// "help COMMAND" is "COMMAND --help"; the names of commands win over items of the same name in the current folder.
/// What follows "--" is no option.
///
/// A file may bear any name, so nothing else in an argument means anything: "[a,b]", "++", "%x" and "@x" are paths.
[[nodiscard]] CommandLine readArguments(const std::vector<std::string> &arguments, FileSystem &files);

} // namespace corvane
