#include <algorithm>
#include <utility>

#include "core/checked_add.h"
#include "core/store/storage_store.h"

namespace corvane {

void StorageStore::refreshCleanup()
{
    if (m_isClosing)
        return;
    m_cleanupJob.start([this](const StopFlag &stop) { return CleanupCatalog::measureAll(m_host.files, stop); });
    emit cleanupChanged();
}

void StorageStore::finishCleanup(std::vector<CleanupItem> items, int token)
{
    m_cleanupJob.finish(std::move(items), token);
}

void StorageStore::publishCleanup(std::vector<CleanupItem> items)
{
    m_cleanupItems = std::move(items);
    emit cleanupChanged();
    takeSizesFromCleanup();
}

// The total of the selection is that of the figures which the screen shows.
void StorageStore::takeSizesFromCleanup()
{
    bool changed = false;
    for (const CleanupItem &item : m_cleanupItems) {
        for (const CleanupEntry &entry : item.entries) {
            const auto selected = m_selection.find(entry.path);
            if (selected == m_selection.end() || selected->second == entry.size)
                continue;
            selected->second = entry.size;
            changed = true;
        }
    }
    if (changed)
        emit selectionChanged();
}

void StorageStore::dropFromCleanup(std::span<const SelectedEntry> removed)
{
    Selection gone;
    for (const SelectedEntry &entry : removed)
        gone.emplace(entry.path, entry.size);
    bool changed = false;
    for (CleanupItem &item : m_cleanupItems) {
        for (CleanupEntry &entry : item.entries) {
            const std::int64_t before = entry.size;
            if (gone.contains(entry.path) || hasSelectedAncestor(gone, entry.path))
                entry.size = 0;
            for (auto inside = gone.lower_bound(entry.path + "/");
                 inside != gone.end() && liesBeneath(inside->first, entry.path); ++inside)
                entry.size -= inside->second;
            changed |= entry.size != before;
        }
    }
    if (!changed)
        return;
    for (CleanupItem &item : m_cleanupItems) {
        std::erase_if(item.entries, [](const CleanupEntry &entry) { return entry.size <= 0; });
        std::ranges::stable_sort(item.entries, std::ranges::greater(), &CleanupEntry::size);
    }
    std::ranges::stable_sort(m_cleanupItems, std::ranges::greater(), &CleanupItem::total);
    emit cleanupChanged();
}

std::int64_t StorageStore::safeCleanupTotal() const
{
    std::int64_t total = 0;
    for (const CleanupItem &item : m_cleanupItems) {
        if (item.def->risk == CleanupRisk::safe)
            total = checkedAdd(total, item.total());
    }
    return total;
}

void StorageStore::selectAllSafeCleanup()
{
    std::vector<SelectedEntry> entries;
    for (const CleanupItem &item : m_cleanupItems) {
        if (item.def->risk != CleanupRisk::safe)
            continue;
        for (const CleanupEntry &entry : item.entries)
            entries.push_back({entry.path, entry.size});
    }
    setSelected(entries, true);
}

} // namespace corvane
