#pragma once

#include <string>
#include <vector>

#include "platform/error.h"

namespace corvane {

/// The folders on which something is mounted, as the kernel's list names them, without links; no disk is touched.
[[nodiscard]] Expected<std::vector<std::string>> listedMountPoints();

} // namespace corvane
