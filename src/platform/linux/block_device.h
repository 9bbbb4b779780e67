#pragma once

#include <string>

namespace corvane {

/// Whether a block device, "MAJOR:MINOR", turns, as `devices` tells, which is the folder of all of them in the kernel's
/// own file system. A virtual machine's device says that it does, whatever its host has: it counts as unknown.
[[nodiscard]] bool isSpinning(const std::string &devices, const std::string &number);

} // namespace corvane
