#pragma once

#include "cli/command.h"

namespace corvane {

// Each is defined in the file with its name, together with its table and its JSON.
[[nodiscard]] Command scanCommand();
[[nodiscard]] Command mapCommand();
[[nodiscard]] Command breakdownCommand();
[[nodiscard]] Command snapshotsCommand();
[[nodiscard]] Command cleanupCommand();
[[nodiscard]] Command appsCommand();
[[nodiscard]] Command duplicatesCommand();
[[nodiscard]] Command largeCommand();
[[nodiscard]] Command oldCommand();
[[nodiscard]] Command protectedCommand();
[[nodiscard]] Command removeCommand();

} // namespace corvane
