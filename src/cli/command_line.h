#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace corvane {

/// Parses the arguments (bytes, without the program's name) and runs the command.
[[nodiscard]] ExitStatus runCommandLine(const std::vector<std::string> &arguments, Console &console);

} // namespace corvane
