#pragma once

#include <cstddef>
#include <string>

#include "cli/command.h"

namespace corvane {

/// The text of "--help" of the whole program, in lines of at most so many columns where that is possible.
[[nodiscard]] std::string programHelp(std::size_t columns);

/// The same of one command.
[[nodiscard]] std::string commandHelp(const Command &command, std::size_t columns);

} // namespace corvane
