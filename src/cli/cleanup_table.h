#pragma once

#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "cli/console.h"

namespace corvane {

/// The measured catalogue for people: what it comes to, and by groups each folder that holds something or that
/// could not be listed.
void writeCleanupTable(const std::vector<CleanupItem> &items, Console &console);

} // namespace corvane
