#include "core/store/storage_store.h"

namespace corvane {

bool StorageStore::isProtected(std::string_view path) const
{
    return m_locations.isProtected(path, m_host.files);
}

bool StorageStore::isSelected(const std::string &path) const
{
    return selection().contains(path);
}

bool StorageStore::isCovered(const std::string &path) const
{
    return corvane::isCovered(selection(), path);
}

void StorageStore::setSelected(const std::string &path, std::int64_t size, bool selected)
{
    const SelectedEntry entry{path, size};
    setSelected(std::span(&entry, 1), selected);
}

void StorageStore::setSelected(std::span<const SelectedEntry> entries, bool selected)
{
    if (selected ? m_selected.add(entries, m_tree) : m_selected.remove(entries))
        emit selectionChanged();
}

void StorageStore::clearSelection()
{
    if (m_selected.clear())
        emit selectionChanged();
}

Selection StorageStore::effectiveSelection() const
{
    return corvane::effectiveSelection(selection());
}

std::int64_t StorageStore::selectedTotal() const
{
    return totalSize(effectiveSelection());
}

std::vector<SelectedEntry> StorageStore::selectedEntries() const
{
    return corvane::selectedEntries(effectiveSelection());
}

} // namespace corvane
