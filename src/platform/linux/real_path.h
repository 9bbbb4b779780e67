#pragma once

#include <string>

#include "platform/error.h"

namespace corvane {

/// The path with every link resolved, of any length; the item must exist. Any thread.
[[nodiscard]] Expected<std::string> resolvedPath(const std::string &path);

} // namespace corvane
