#pragma once

#include <string_view>
#include <vector>

#include "cleanup/admin_command.h"
#include "cleanup/cleanup_catalog.h"
#include "cli/console.h"

namespace corvane {

/// The measured catalogue as one JSON array, in its order.
void writeCleanupJson(const std::vector<CleanupItem> &items, Output &out);

/// The contents of the table. The referenced objects must outlive it.
struct CleanupReport {
    const std::vector<CleanupItem> &items;
    const std::vector<AdminCommand> &commands;
    const CleanupTable &table; ///< for the items' system
    std::string_view home;     ///< shown as "~"
};

/// Writes the measured catalogue as a table: the totals, and for each group the folders that are not empty, with their
/// locations; if the system folds empty rows, each folder that exists and the number of those that do not. Then the
/// commands that the user would have to run.
void writeCleanupTable(const CleanupReport &report, Console &console);

} // namespace corvane
