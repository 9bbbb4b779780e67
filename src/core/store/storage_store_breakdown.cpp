#include <utility>

#include "core/store/storage_store.h"
#include "core/words/system_words.h"
#include "disk/disk_accountant.h"

namespace corvane {

ScanContext StorageStore::makeScanContext() const
{
    ScanContext context = hasScan() ? ScanContext::of(*root(), unreadableCount()) : ScanContext();
    context.deniedCount = deniedCount();
    context.isPartial = scanIsPartial();
    context.hasFullDiskAccess = m_hasFullDiskAccess;
    return context;
}

void StorageStore::refreshBreakdown()
{
    m_breakdownHasTree = hasScan();
    m_breakdownJob.start([this, context = makeScanContext()](const StopFlag &stop) {
        return DiskAccountant::compute(context, m_host, stop);
    });
    emit breakdownChanged();
}

void StorageStore::finishBreakdown(DiskBreakdown breakdown, int token)
{
    m_breakdownJob.finish(std::move(breakdown), token);
}

void StorageStore::publishBreakdown(DiskBreakdown breakdown)
{
    m_breakdown = std::move(breakdown);
    emit breakdownChanged();
}

// Cancels a computation for a tree that is no longer installed. The last breakdown stays visible until the next; if
// there is none, computes one without a tree, since the scan may take long.
void StorageStore::dropOutdatedBreakdown()
{
    if (!breakdownLoading() || !m_breakdownHasTree)
        return;
    if (!m_breakdown) {
        refreshBreakdown();
        return;
    }
    m_breakdownJob.drop();
    emit breakdownChanged();
}

void StorageStore::perform(const BreakdownAction &action)
{
    switch (action.kind) {
    case BreakdownAction::Kind::reveal:
        reveal(action.path);
        break;
    case BreakdownAction::Kind::openMap:
        setSidebar(SidebarItem::explorer);
        break;
    case BreakdownAction::Kind::scanHome:
        scanHome();
        break;
    case BreakdownAction::Kind::fullDiskAccess:
        if (!PathGuard::openFullDiskAccessSettings(m_host.desktop))
            showToast(std::string(words().settingsFailure), true);
        break;
    }
}

} // namespace corvane
