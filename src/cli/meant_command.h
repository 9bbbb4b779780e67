#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

/// The arguments with the command that they mean: "help" and "help COMMAND" become "--help", and a path in the place
/// of a command is one to scan. The names of commands win over items of the same name in the current folder; "./scan"
/// and "-- scan" are paths.
[[nodiscard]] std::vector<std::string> withMeantCommand(std::vector<std::string> arguments,
                                                        std::span<const std::string> commands, FileSystem &files);

} // namespace corvane
