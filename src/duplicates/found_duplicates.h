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

/// The groups that a search has found, and which of their copies were selected by a rule. One thread.
class FoundDuplicates {
public:
    FoundDuplicates() = default;
    explicit FoundDuplicates(std::vector<DuplicateGroup> groups) : m_groups(std::move(groups)) {}

    /// The most wasteful first.
    [[nodiscard]] const std::vector<DuplicateGroup> &groups() const { return m_groups; }

    /// What all of them waste.
    [[nodiscard]] std::int64_t waste() const { return totalReclaimable(m_groups); }

    /// All files but the newest of each group, or but the oldest. From then on one of each group survives a removal.
    [[nodiscard]] std::vector<SelectedEntry> copiesToSelect(bool keepNewest);

    /// What has to hold before each of the entries is removed. `selected` is the selection that they come from, with
    /// what it holds twice.
    [[nodiscard]] RemovalConditions conditionsOf(const Selection &entries, const Selection &selected) const;

    /// Takes files out of their groups, and groups of which one file is left; whether anything has changed.
    bool remove(const std::function<bool(const FileNode &)> &isGone);

private:
    std::vector<DuplicateGroup> m_groups;
    CopiesKeptByRule m_keptByRule;
};

} // namespace corvane
