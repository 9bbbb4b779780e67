#include <algorithm>
#include <utility>

#include "cleanup/cleanup_items.h"
#include "core/store/storage_store.h"
#include "platform/path.h"

namespace corvane {

void StorageStore::remove(const Selection &entries, bool permanently)
{
    if (m_removal.start(entries, permanently, m_selected.seen(), m_duplicates.conditionsOf(entries, selection())))
        emit isRemovingChanged();
}

void StorageStore::stopRemoval()
{
    if (m_removal.stop())
        emit isRemovingChanged();
}

void StorageStore::didRemove(const RemovalOutcome &outcome, bool permanently, const std::vector<MeasuredTree> &remains)
{
    if (const std::string lines = Removal::logText(outcome); !lines.empty())
        m_host.desktop.log(lines);
    if (m_isClosing) // there is no screen left to update
        return;
    const SelectedItems::Settlement settled = m_selected.settle(outcome);
    applyToTree(settled.gone, remains);
    if (!remains.empty() && m_selected.resizeFrom(m_tree))
        emit selectionChanged();
    if (takeRemoved(m_cleanupItems, settled.gone))
        emit cleanupChanged();
    followRemovalInApps(settled.gone, endUninstall());
    if (settled.hasChanged)
        emit selectionChanged();

    m_removal.end();
    emit isRemovingChanged();
    refreshVolume();
    showToast(Removal::message(outcome, permanently), !outcome.failures.empty());
    refreshBreakdown();
    refreshCleanup();
    removeNextUninstall();
}

// The tree changes only from what was really removed.
void StorageStore::applyToTree(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains)
{
    const auto concernsScan = [&](const std::string &root) {
        return std::ranges::any_of(remains, [&](const MeasuredTree &measured) {
            const std::string path = measured.root->path();
            return isOrLiesBeneath(root, path) || (m_phase == Phase::scanning && liesBeneath(path, root));
        });
    };
    if (hasScan() && isRootGone(*root(), gone)) {
        clearScan();
        setPhase(Phase::idle);
        return;
    }
    if ((hasScan() || m_phase == Phase::scanning) && concernsScan(m_lastScanPath)) {
        // The scanned folder itself remains in part, or the running walk may have seen the item whole.
        rescan();
        return;
    }
    if (hasScan()) {
        if (!updateTree(gone, remains))
            return;
        ++m_revision;
        emit treeChanged();
        emit revisionChanged();
    } else if (m_phase == Phase::scanning) {
        m_removedDuringScan.insert(m_removedDuringScan.end(), gone.begin(), gone.end());
    }
}

bool StorageStore::updateTree(std::span<const SelectedEntry> gone, std::span<const MeasuredTree> remains)
{
    auto left = std::make_shared<std::vector<std::shared_ptr<FileNode>>>(m_tree.update(gone, remains));
    if (left->empty())
        return false;
    if (m_currentFolder && !m_tree.contains(*m_currentFolder))
        setCurrentFolder(m_tree.nearestFolder(m_currentFolder->path()));
    followTreeInDuplicates();
    discard(std::move(left));
    return true;
}

} // namespace corvane
