#pragma once

#include <map>
#include <span>
#include <string>

#include "core/removal_condition.h"
#include "core/selection.h"
#include "duplicates/duplicate_group.h"

namespace corvane {

/// Which file of a group a rule keeps.
enum class KeepRule { newest, oldest };

/// For groups whose copies were selected by a rule, the path that the rule keeps, by the group's `id`.
using CopiesKeptByRule = std::map<std::string, std::string>;

/// The file of a group that the rule keeps; the first of several with the same date.
[[nodiscard]] std::size_t keptFile(const DuplicateGroup &group, KeepRule rule);

/// The conditions under which a removal leaves one copy of all contents that have several. An entry that is one of a
/// group's files requires a file of the group that stays, both unchanged since they were compared; a folder requires
/// the same for the files in it whose group's copies were selected by a rule. If a file is in two groups, the later one
/// counts. If the removal would take all files of a group whose copies were selected by a rule, the entries that
/// contain the file kept by the rule stay; if a user selected all of them by hand, that is intentional.
[[nodiscard]] RemovalConditions conditionsOf(const Selection &entries, std::span<const DuplicateGroup> groups,
                                             const CopiesKeptByRule &keptByRule);

} // namespace corvane
