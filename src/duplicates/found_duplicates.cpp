#include "duplicates/found_duplicates.h"

#include <algorithm>
#include <utility>

namespace corvane {

std::vector<SelectedEntry> FoundDuplicates::copiesToSelect(bool keepNewest)
{
    std::vector<SelectedEntry> entries;
    m_keptByRule.clear();
    for (const DuplicateGroup &group : m_groups) {
        const std::size_t kept = keptFile(group, keepNewest);
        m_keptByRule.emplace(group.id, group.files[kept]->path());
        for (std::size_t i = 0; i < group.files.size(); ++i) {
            if (i != kept)
                entries.push_back({group.files[i]->path(), group.files[i]->size});
        }
    }
    return entries;
}

RemovalConditions FoundDuplicates::conditionsOf(const Selection &entries, const Selection &selected) const
{
    CopiesKeptByRule kept;
    for (const DuplicateGroup &group : m_groups) {
        const auto byRule = m_keptByRule.find(group.id);
        if (byRule == m_keptByRule.end())
            continue;
        // One whose copies were all deselected since is none of the rule's any more.
        const bool isStillSelected = std::ranges::any_of(group.files, [&](const auto &file) {
            const std::string path = file->path();
            return path != byRule->second && selected.contains(path);
        });
        if (isStillSelected)
            kept.insert(*byRule);
    }
    return corvane::conditionsOf(entries, m_groups, kept);
}

bool FoundDuplicates::remove(const std::function<bool(const FileNode &)> &isGone)
{
    bool hasChanged = false;
    for (DuplicateGroup &group : m_groups) {
        DuplicateGroup rest{.id = group.id, .size = group.size, .files = {}, .seen = {}};
        for (std::size_t i = 0; i < group.files.size(); ++i) {
            if (isGone(*group.files[i]))
                continue;
            rest.files.push_back(group.files[i]);
            rest.seen.push_back(group.seen[i]);
        }
        if (rest.files.size() == group.files.size())
            continue;
        hasChanged = true;
        group = std::move(rest);
    }
    if (!hasChanged)
        return false;
    std::erase_if(m_groups, [](const DuplicateGroup &group) { return group.files.size() < 2; });
    std::ranges::stable_sort(m_groups, std::greater<>{}, &DuplicateGroup::waste);
    return true;
}

} // namespace corvane
