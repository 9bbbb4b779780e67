#include "cleanup/cleanup_items.h"

#include <algorithm>
#include <utility>

#include "core/checked_add.h"
#include "core/selection.h"
#include "core/words/figures.h"
#include "platform/path.h"

namespace corvane {
namespace {

void appendEntries(const CleanupItem &item, std::vector<SelectedEntry> &into)
{
    for (const CleanupEntry &entry : item.entries)
        into.push_back({entry.path, entry.size});
}

} // namespace

std::vector<const CleanupItem *> largestFirst(std::span<const CleanupItem> items)
{
    std::vector<const CleanupItem *> sorted;
    for (const CleanupItem &item : items)
        sorted.push_back(&item);
    const auto own = std::ranges::find_if_not(
        sorted, [](const CleanupItem *item) { return CleanupCatalog::isOfEverySystem(*item); });
    std::ranges::inplace_merge(sorted, own, std::ranges::greater(),
                               [](const CleanupItem *item) { return item->total(); });
    return sorted;
}

Showing showingOf(const CleanupItem &item, const CleanupTable &table)
{
    if (!table.foldsEmptyRows || item.exists)
        return Showing::shown;
    return std::ranges::find(table.foreignRows, item.def->id) == table.foreignRows.end() ? Showing::folded
                                                                                         : Showing::hidden;
}

std::string foldedText(std::size_t count, std::size_t shownCount)
{
    if (shownCount == 0)
        return formatCount(static_cast<std::int64_t>(count), "place holds nothing", "places hold nothing");
    return formatCount(static_cast<std::int64_t>(count), "more place holds nothing", "more places hold nothing");
}

bool takeRemoved(std::vector<CleanupItem> &items, std::span<const SelectedEntry> removed)
{
    Selection gone;
    for (const SelectedEntry &entry : removed)
        gone.emplace(entry.path, entry.size);
    bool hasChanged = false;
    for (CleanupItem &item : items) {
        for (CleanupEntry &entry : item.entries) {
            if (isCovered(gone, entry.path))
                hasChanged |= std::exchange(entry.size, 0) != 0;
            hasChanged |= takeInside(gone, entry.path, entry.size);
        }
    }
    if (!hasChanged)
        return false;
    for (CleanupItem &item : items) {
        std::erase_if(item.entries, [](const CleanupEntry &entry) { return entry.size <= 0; });
        std::ranges::stable_sort(item.entries, std::ranges::greater(), &CleanupEntry::size);
    }
    CleanupCatalog::sort(items);
    return true;
}

std::int64_t safeTotal(std::span<const CleanupItem> items)
{
    std::int64_t total = 0;
    for (const CleanupItem &item : items) {
        if (item.def->risk == CleanupRisk::safe)
            total = checkedAdd(total, item.total());
    }
    return total;
}

std::vector<SelectedEntry> safeEntries(std::span<const CleanupItem> items)
{
    std::vector<SelectedEntry> entries;
    for (const CleanupItem &item : items) {
        if (item.def->risk == CleanupRisk::safe)
            appendEntries(item, entries);
    }
    return entries;
}

std::vector<SelectedEntry> allEntries(std::span<const CleanupItem> items)
{
    std::vector<SelectedEntry> entries;
    for (const CleanupItem &item : items)
        appendEntries(item, entries);
    return entries;
}

} // namespace corvane
