#pragma once

#include <string>

#include "platform/error.h"

namespace corvane {

/// Deletes an item and everything beneath it for good; any thread. A symbolic link is deleted, never followed,
/// at every level and even when it takes a folder's place meanwhile. Stops at the first item that cannot be
/// deleted and names it. Never goes into what is mounted: an item that is or holds a mount point is refused before
/// anything is touched.
[[nodiscard]] Expected<void> removeItemForGood(const std::string &path);

} // namespace corvane
