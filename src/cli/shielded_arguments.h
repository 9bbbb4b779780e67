#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The argument parser reads meaning into what may be a file's name: "[a,b]" becomes two arguments, "++" ends
/// a command, the name of a command starts one. So every argument but options and the command itself is handed to
/// it behind a mark, and has the mark taken off again by `unshielded`. What follows "--" is never an option.
[[nodiscard]] std::vector<std::string> shieldedArguments(const std::vector<std::string> &arguments);

/// Whether an argument that stands before "--" is an option; "-" alone is none.
[[nodiscard]] bool isOption(std::string_view argument);

/// The argument as it was given.
[[nodiscard]] std::string unshielded(std::string_view argument);

} // namespace corvane
