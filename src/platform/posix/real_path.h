#pragma once

#include <string>

#include "platform/error.h"

namespace corvane {

/// The path with every link resolved; the item must exist. Any length on Linux. Any thread.
[[nodiscard]] Expected<std::string> resolvedPath(const std::string &path);

} // namespace corvane
