#pragma once

#include <map>
#include <span>
#include <string>

#include "core/removal_condition.h"
#include "core/selection.h"
#include "duplicates/duplicate_group.h"

namespace corvane {

/// Of the groups whose copies were selected by a rule, the path that the rule keeps, by the group's `id`.
using CopiesKeptByRule = std::map<std::string, std::string>;

/// The file of a group that the rule keeps: the first among the newest, or among the oldest.
[[nodiscard]] std::size_t keptFile(const DuplicateGroup &group, bool keepNewest);

/// What has to hold so that a removal leaves one copy of whatever has several. An entry that is one of a group's files
/// needs a file of the group that stays, both unchanged since they were compared; a folder needs the same for the files
/// in it whose group's copies were selected by a rule. Of two groups with the same file the later one counts. Where the
/// removal would take all files of a group whose copies were selected by a rule, the entries that would take the one
/// that the rule keeps stay; a user who picked all of them by hand intends it.
[[nodiscard]] RemovalConditions conditionsOf(const Selection &entries, std::span<const DuplicateGroup> groups,
                                             const CopiesKeptByRule &keptByRule);

} // namespace corvane
