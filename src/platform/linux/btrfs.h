#pragma once

#include <string>

namespace corvane {

/// Whether what the path leads to is on a btrfs file system; false if that cannot be determined.
[[nodiscard]] bool isOnBtrfs(const std::string &path);

} // namespace corvane
