#pragma once

#include <vector>

#include "platform/mounted_folder.h"

namespace corvane {

/// Everything that is mounted, in the kernel's order: of two with one path the later lies on top of the other. Empty
/// where the kernel does not tell.
[[nodiscard]] std::vector<MountedFolder> readMountTable();

} // namespace corvane
