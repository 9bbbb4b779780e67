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

/// The groups found by the last search, and all groups whose copies were selected by a rule, also after earlier
/// searches: while one of these copies is selected, another one must stay. One thread.
class FoundDuplicates {
public:
    /// Replaces the groups by those of a new search, or by none. Groups with copies that must stay are kept.
    void replace(std::vector<DuplicateGroup> groups) { m_groups = std::move(groups); }

    /// The most wasteful first.
    [[nodiscard]] const std::vector<DuplicateGroup> &groups() const { return m_groups; }

    /// The reclaimable space of all groups.
    [[nodiscard]] std::int64_t waste() const { return totalReclaimable(m_groups); }

    /// All files except the one of each group that the rule keeps, to be added to the selection. From then on one file
    /// of each group survives a removal.
    [[nodiscard]] std::vector<SelectedEntry> copiesToSelect(KeepRule rule, const Selection &selected);

    /// The conditions to check before removing each entry. `selected` is the selection that the entries come from,
    /// including redundant entries.
    [[nodiscard]] RemovalConditions conditionsOf(const Selection &entries, const Selection &selected) const;

    /// Removes files from their groups, and groups left with one file; returns whether anything has changed.
    bool remove(const std::function<bool(const FileNode &)> &isGone);

private:
    /// A group as found by the rule, and the path that it keeps.
    struct Pledge {
        DuplicateGroup group;
        std::string kept;

        /// Whether a copy selected by the rule is still selected.
        [[nodiscard]] bool holds(const Selection &selected) const;
    };

    std::vector<DuplicateGroup> m_groups;
    std::vector<Pledge> m_pledges; // one per group
};

} // namespace corvane
