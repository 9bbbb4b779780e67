#pragma once

#include <string_view>
#include <vector>

#include "cli/console.h"
#include "duplicates/duplicate_group.h"

namespace corvane {

/// What a search for duplicates found.
struct DuplicatesFound {
    std::vector<DuplicateGroup> groups;
    bool isStopped = false; ///< there may be more
};

/// The words for the result of a search that was stopped.
inline constexpr std::string_view searchStoppedText = "Search stopped — showing partial results";

/// The groups for people: what they waste, and of each the files, the newest first.
void writeDuplicatesTable(const DuplicatesFound &found, std::string_view home, Console &console);

} // namespace corvane
