#pragma once

#include <string>
#include <vector>

#include "cli/console.h"
#include "cli/exit_status.h"

namespace corvane {

/// Reads the arguments (without the program's name; bytes) and runs the command that they name.
[[nodiscard]] ExitStatus runCommandLine(const std::vector<std::string> &arguments, Console &console);

} // namespace corvane
