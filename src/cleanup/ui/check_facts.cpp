#include "cleanup/ui/check_facts.h"

#include <algorithm>
#include <vector>

#include "core/store/storage_store.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

bool hasSelectedInside(const Selection &selection, const std::string &path)
{
    const auto next = selection.lower_bound(path + "/");
    return next != selection.end() && liesBeneath(next->first, path);
}

std::vector<SelectedEntry> entriesOf(const CleanupItem &item)
{
    std::vector<SelectedEntry> entries;
    entries.reserve(item.entries.size());
    for (const CleanupEntry &entry : item.entries)
        entries.push_back({entry.path, entry.size});
    return entries;
}

} // namespace

CheckFacts checkFactsOf(const StorageStore &store, const std::string &path)
{
    if (hasSelectedAncestor(store.selection(), path))
        return {Qt::Checked, false, coveredRefusal()};
    if (store.isProtected(path))
        return {Qt::Unchecked, false, protectedRefusal()};
    if (store.isSelected(path))
        return {Qt::Checked, true, {}};
    return {hasSelectedInside(store.selection(), path) ? Qt::PartiallyChecked : Qt::Unchecked, true, {}};
}

CheckFacts checkFactsOf(const StorageStore &store, const CleanupItem &item)
{
    const Selection &selection = store.selection();
    if (item.entries.empty())
        return {};
    if (hasSelectedAncestor(selection, item.entries.front().path))
        return {Qt::Checked, false, coveredRefusal()};

    std::size_t selected = 0;
    bool isAnyInside = false;
    for (const CleanupEntry &entry : item.entries) {
        if (selection.contains(entry.path))
            ++selected;
        else
            isAnyInside = isAnyInside || hasSelectedInside(selection, entry.path);
    }
    // Asking whether a path is protected asks the disk, so it is done until the first one that is not.
    const bool isAnyLeft = std::ranges::any_of(item.entries, [&](const CleanupEntry &entry) {
        return !selection.contains(entry.path) && !store.isProtected(entry.path);
    });
    if (!isAnyLeft)
        return selected > 0 ? CheckFacts{Qt::Checked, true, {}} : CheckFacts{Qt::Unchecked, false, protectedRefusal()};
    return {selected > 0 || isAnyInside ? Qt::PartiallyChecked : Qt::Unchecked, true, {}};
}

void selectEntries(StorageStore &store, const CleanupItem &item)
{
    store.setSelected(entriesOf(item), true);
}

void toggleEntries(StorageStore &store, const CleanupItem &item)
{
    if (const CheckFacts facts = checkFactsOf(store, item); facts.isCheckable)
        store.setSelected(entriesOf(item), facts.state != Qt::Checked);
}

} // namespace corvane
