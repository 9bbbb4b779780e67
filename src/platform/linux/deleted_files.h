#pragma once

#include <string>
#include <vector>

#include "platform/volume.h"

namespace corvane {

/// The deleted files on the file systems of "/" and of the home folder that programs have open, largest first; of the
/// programs of this user, or of all where the user is the administrator.
[[nodiscard]] std::vector<HeldFiles> openDeletedFiles(const std::string &home);

} // namespace corvane
