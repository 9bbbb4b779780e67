#include "duplicates/kept_copies.h"

#include <algorithm>
#include <vector>

namespace corvane {

namespace {

/// Whether an entry that may be removed would take the file with it.
bool isTaken(const std::string &path, const Selection &entries, const RemovalConditions &conditions)
{
    return std::ranges::any_of(entriesAround(entries, path), [&](const std::string &entry) {
        const auto condition = conditions.find(entry);
        return condition == conditions.end() || !condition->second.holdsKeptCopy;
    });
}

/// Adds the conditions for entries that remove files of the group. If the group was selected by a rule, entries that
/// are folders count too.
void addConditions(const DuplicateGroup &group, bool isOfRule, const Selection &entries, RemovalConditions &conditions)
{
    auto staying = std::make_shared<std::vector<KeptCopy>>();
    std::vector<std::size_t> going;
    for (std::size_t i = 0; i < group.files.size(); ++i) {
        const std::string path = group.files[i]->path();
        if (isTaken(path, entries, conditions))
            going.push_back(i);
        else
            staying->push_back({path, group.seen[i]});
    }
    if (staying->empty())
        return;
    const KeptCopies copies = std::move(staying);
    for (const std::size_t i : going) {
        const std::string path = group.files[i]->path();
        for (const std::string &entry : entriesAround(entries, path)) {
            if (entry == path)
                conditions[entry] = {.itself = group.seen[i], .copies = {copies}};
            else if (isOfRule && (conditions[entry].copies.empty() || conditions[entry].copies.back() != copies))
                conditions[entry].copies.push_back(copies);
        }
    }
}

} // namespace

std::size_t keptFile(const DuplicateGroup &group, KeepRule rule)
{
    const auto modified = [](const std::shared_ptr<FileNode> &file) { return file->modified; };
    const auto kept = rule == KeepRule::newest ? std::ranges::max_element(group.files, {}, modified)
                                               : std::ranges::min_element(group.files, {}, modified);
    return static_cast<std::size_t>(kept - group.files.begin());
}

RemovalConditions conditionsOf(const Selection &entries, std::span<const DuplicateGroup> groups,
                               const CopiesKeptByRule &keptByRule)
{
    RemovalConditions conditions;
    // Determine first what stays, since a folder that stays keeps the files of every group in it.
    for (const DuplicateGroup &group : groups) {
        const auto kept = keptByRule.find(group.id);
        if (kept == keptByRule.end())
            continue;
        const auto goes = [&](const auto &file) { return isCovered(entries, file->path()); };
        if (std::ranges::all_of(group.files, goes)) {
            for (const std::string &entry : entriesAround(entries, kept->second))
                conditions[entry].holdsKeptCopy = true;
        }
    }
    for (const DuplicateGroup &group : groups)
        addConditions(group, keptByRule.contains(group.id), entries, conditions);
    return conditions;
}

} // namespace corvane
