#include "core/selection.h"

#include <algorithm>
#include <unordered_set>

#include "core/checked_add.h"
#include "platform/path.h"

namespace corvane {
namespace {

/// Whether the predicate holds for an ancestor folder of the path; "/" itself is not tested.
template <typename Predicate>
bool anyAncestor(std::string_view path, const Predicate &predicate)
{
    for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos && slash >= 2; slash = path.rfind('/')) {
        path = path.substr(0, slash);
        if (predicate(path))
            return true;
    }
    return false;
}

} // namespace

Selection effectiveSelection(const Selection &selection)
{
    // Every click of a checkbox looks up tens of thousands of entries, each a dozen levels deep.
    std::unordered_set<std::string_view> paths;
    paths.reserve(selection.size());
    for (const auto &entry : selection)
        paths.insert(entry.first);

    Selection effective;
    for (const auto &entry : selection) {
        if (!anyAncestor(entry.first, [&](std::string_view folder) { return paths.contains(folder); }))
            effective.emplace_hint(effective.end(), entry);
    }
    return effective;
}

std::vector<SelectedEntry> selectedEntries(const Selection &effective)
{
    std::vector<SelectedEntry> entries;
    entries.reserve(effective.size());
    for (const auto &[path, size] : effective)
        entries.push_back({path, size});
    // The map yields them by path, and the stable sort keeps that order within a size.
    std::ranges::stable_sort(entries, std::ranges::greater{}, &SelectedEntry::size);
    return entries;
}

std::int64_t totalSize(const Selection &effective)
{
    std::int64_t total = 0;
    for (const auto &entry : effective)
        total = checkedAdd(total, entry.second);
    return total;
}

bool hasSelectedAncestor(const Selection &selection, std::string_view path)
{
    return anyAncestor(path, [&](std::string_view folder) { return selection.contains(folder); });
}

std::vector<std::string> entriesAround(const Selection &selection, std::string_view path)
{
    std::vector<std::string> around;
    const auto take = [&](std::string_view item) {
        if (selection.contains(item))
            around.emplace_back(item);
        return false;
    };
    take(path);
    anyAncestor(path, take);
    return around;
}

// In path order, the contents of a folder are contiguous.

bool hasSelectedInside(const Selection &selection, std::string_view path)
{
    const auto next = selection.lower_bound(joined(path, {}));
    return next != selection.end() && liesBeneath(next->first, path);
}

bool takeInside(const Selection &gone, std::string_view path, std::int64_t &size)
{
    const std::int64_t before = size;
    for (auto inside = gone.lower_bound(joined(path, {})); inside != gone.end() && liesBeneath(inside->first, path);
         ++inside)
        size = std::max<std::int64_t>(0, size - inside->second);
    return size != before;
}

bool isCovered(const Selection &selection, std::string_view path)
{
    return selection.contains(path) || hasSelectedAncestor(selection, path);
}

} // namespace corvane
