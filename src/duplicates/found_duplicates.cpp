#include "duplicates/found_duplicates.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace corvane {

bool FoundDuplicates::Pledge::holds(const Selection &selected) const
{
    return std::ranges::any_of(group.files, [&](const auto &file) {
        const std::string path = file->path();
        return path != kept && selected.contains(path);
    });
}

std::vector<SelectedEntry> FoundDuplicates::copiesToSelect(KeepRule rule, const Selection &selected)
{
    std::set<std::string_view> ids;
    for (const DuplicateGroup &group : m_groups)
        ids.insert(group.id);
    std::erase_if(m_pledges,
                  [&](const Pledge &pledge) { return ids.contains(pledge.group.id) || !pledge.holds(selected); });
    std::vector<SelectedEntry> entries;
    for (const DuplicateGroup &group : m_groups) {
        const std::size_t kept = keptFile(group, rule);
        m_pledges.push_back({.group = group, .kept = group.files[kept]->path()});
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
    std::vector<DuplicateGroup> groups;
    for (const Pledge &pledge : m_pledges) {
        if (!pledge.holds(selected))
            continue;
        kept.emplace(pledge.group.id, pledge.kept);
        groups.push_back(pledge.group);
    }
    // Last, because they contain the files' current status.
    groups.insert(groups.end(), m_groups.begin(), m_groups.end());
    return corvane::conditionsOf(entries, groups, kept);
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
