#pragma once

#include <string_view>
#include <vector>

#include "cleanup/cleanup_catalog.h"
#include "cli/console.h"

namespace corvane {

/// The measured catalogue for people: what it comes to, and by groups each folder that holds something, with where
/// it is, or that could not be listed.
void writeCleanupTable(const std::vector<CleanupItem> &items, std::string_view home, Console &console);

} // namespace corvane
