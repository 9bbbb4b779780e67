#pragma once

#include <cstddef>
#include <string>

#include "cli/command.h"

namespace corvane {

/// The program's "--help" text, wrapped to `columns` where possible.
[[nodiscard]] std::string programHelp(std::size_t columns);

/// The same for one command.
[[nodiscard]] std::string commandHelp(const Command &command, std::size_t columns);

} // namespace corvane
