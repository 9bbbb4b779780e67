#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "core/removal_condition.h"
#include "core/selected_entry.h"
#include "core/selection.h"
#include "duplicates/duplicate_group.h"
#include "duplicates/kept_copies.h"

namespace corvane {

/// The groups that the last search has found, and those whose copies were selected by a rule, then or after an earlier
/// search: as long as one of these copies is selected, another one has to stay. One thread.
class FoundDuplicates {
public:
    /// Replaces the groups by those of a new search, or by none. What has to stay is kept.
    void replace(std::vector<DuplicateGroup> groups) { m_groups = std::move(groups); }

    /// The most wasteful first.
    [[nodiscard]] const std::vector<DuplicateGroup> &groups() const { return m_groups; }

    /// What all of them waste.
    [[nodiscard]] std::int64_t waste() const { return totalReclaimable(m_groups); }

    /// All files but the newest of each group, or but the oldest, to be added to what is selected. From then on one of
    /// each group survives a removal.
    [[nodiscard]] std::vector<SelectedEntry> copiesToSelect(bool keepNewest, const Selection &selected);

    /// What has to hold before each of the entries is removed. `selected` is the selection that they come from, with
    /// what it holds twice.
    [[nodiscard]] RemovalConditions conditionsOf(const Selection &entries, const Selection &selected) const;

    /// Takes files out of their groups, and groups of which one file is left; whether anything has changed.
    bool remove(const std::function<bool(const FileNode &)> &isGone);

private:
    /// A group as the rule found it, and the path that it keeps.
    struct Pledge {
        DuplicateGroup group;
        std::string kept;

        /// Whether a copy that the rule selected is still selected.
        [[nodiscard]] bool holds(const Selection &selected) const;
    };

    std::vector<DuplicateGroup> m_groups;
    std::vector<Pledge> m_pledges; // one a group
};

} // namespace corvane
