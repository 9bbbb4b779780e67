#pragma once

#include <string>
#include <vector>

#include "platform/volume.h"

namespace corvane {

/// Deleted files on the file systems of "/" and of the home folder that are still open, largest first; those opened by
/// this user's programs, or by all programs if the user is root.
[[nodiscard]] std::vector<OpenDeletedFiles> openDeletedFiles(const std::string &home);

} // namespace corvane
