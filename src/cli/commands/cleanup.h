#pragma once

#include <string_view>
#include <vector>

#include "cleanup/admin_command.h"
#include "cleanup/cleanup_catalog.h"
#include "cli/console.h"

namespace corvane {

/// The measured catalogue as one JSON array, in its order.
void writeCleanupJson(const std::vector<CleanupItem> &items, Output &out);

/// What the table tells of. What is referred to outlives it.
struct CleanupReport {
    const std::vector<CleanupItem> &items;
    const std::vector<AdminCommand> &commands;
    const CleanupTable &table; ///< of the system that they are of
    std::string_view home;     ///< shown as "~"
};

/// The measured catalogue for people: what it comes to, and by groups each folder that holds something, with where
/// that lies; where the system folds empty rows, each folder that exists and how many do not. Then the commands that
/// the user would have to run.
void writeCleanupTable(const CleanupReport &report, Console &console);

} // namespace corvane
