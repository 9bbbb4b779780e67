#include "duplicates/kept_copies.h"

#include <algorithm>
#include <vector>

#include "platform/path.h"

namespace corvane {

namespace {

/// The entries that are the item at the path or a folder around it, that one first.
std::vector<std::string> entriesAround(std::string_view path, const Selection &entries)
{
    std::vector<std::string> around;
    for (; !path.empty(); path = containingFolder(path)) {
        if (entries.find(path) != entries.end())
            around.emplace_back(path);
        if (path == "/")
            break;
    }
    return around;
}

/// Whether an entry that is not held back would take the file.
bool isTaken(const std::string &path, const Selection &entries, const RemovalConditions &conditions)
{
    return std::ranges::any_of(entriesAround(path, entries), [&](const std::string &entry) {
        const auto condition = conditions.find(entry);
        return condition == conditions.end() || !condition->second.holdsKeptCopy;
    });
}

} // namespace

std::size_t keptFile(const DuplicateGroup &group, bool keepNewest)
{
    const auto modified = [](const std::shared_ptr<FileNode> &file) { return file->modified; };
    const auto kept = keepNewest ? std::ranges::max_element(group.files, {}, modified)
                                 : std::ranges::min_element(group.files, {}, modified);
    return static_cast<std::size_t>(kept - group.files.begin());
}

RemovalConditions conditionsOf(const Selection &entries, std::span<const DuplicateGroup> groups,
                               const CopiesKeptByRule &keptByRule)
{
    RemovalConditions conditions;
    // First what stays after all, for a folder that stays keeps the files of every group in it.
    for (const DuplicateGroup &group : groups) {
        const auto kept = keptByRule.find(group.id);
        if (kept == keptByRule.end())
            continue;
        const auto goes = [&](const auto &file) { return isCovered(entries, file->path()); };
        if (std::ranges::all_of(group.files, goes)) {
            for (const std::string &entry : entriesAround(kept->second, entries))
                conditions[entry].holdsKeptCopy = true;
        }
    }
    for (const DuplicateGroup &group : groups) {
        std::vector<KeptCopy> staying;
        std::vector<std::string> going;
        for (std::size_t i = 0; i < group.files.size(); ++i) {
            const std::string path = group.files[i]->path();
            if (!isTaken(path, entries, conditions))
                staying.push_back({path, group.seen[i]});
            else if (entries.contains(path))
                going.push_back(path);
        }
        if (staying.empty())
            continue;
        for (const std::string &path : going)
            conditions[path].copies = staying;
    }
    return conditions;
}

} // namespace corvane
