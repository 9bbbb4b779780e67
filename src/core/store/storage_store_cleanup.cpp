#include <utility>

#include "cleanup/cleanup_items.h"
#include "core/store/storage_store.h"

namespace corvane {

void StorageStore::refreshCleanup()
{
    m_cleanupJob.start([this](const StopFlag &stop) { return CleanupCatalog::measureAll(m_host.files, stop); });
    // A separate job: a tool whose service hangs must not delay the figures.
    m_cleanupCommandsJob.start([this](const StopFlag &stop) { return findAdminCommands(m_host.files, stop); });
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
    // Keep the selection's total consistent with the figures on screen.
    if (m_selected.resize(allEntries(m_cleanupItems)))
        emit selectionChanged();
}

void StorageStore::finishCleanupCommands(std::vector<AdminCommand> commands, int token)
{
    m_cleanupCommandsJob.finish(std::move(commands), token);
}

void StorageStore::publishCleanupCommands(std::vector<AdminCommand> commands)
{
    if (commands == m_cleanupCommands)
        return;
    m_cleanupCommands = std::move(commands);
    emit cleanupCommandsChanged();
}

std::int64_t StorageStore::safeCleanupTotal() const
{
    return safeTotal(m_cleanupItems);
}

void StorageStore::selectAllSafeCleanup()
{
    setSelected(safeEntries(m_cleanupItems), true);
}

} // namespace corvane
