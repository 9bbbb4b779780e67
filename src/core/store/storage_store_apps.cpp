#include <algorithm>
#include <utility>

#include "apps/listed_items.h"
#include "core/store/storage_store.h"

namespace corvane {

void StorageStore::refreshApps()
{
    m_appsJob.start([this, now = m_timing.now()](const StopFlag &stop) {
        return AppInventory::load(m_host, m_locations, now, stop);
    });
    emit appsChanged();
}

void StorageStore::setApps(AppInventory::Result result, int token)
{
    m_appsJob.finish(std::move(result), token);
}

void StorageStore::publishApps(AppInventory::Result result)
{
    m_inventory = std::move(result);
    m_appsLoaded = true;
    emit appsChanged();
    // Keep the selection's total consistent with the figures on screen.
    if (m_selected.resize(orphanEntries(m_inventory.orphanGroups)))
        emit selectionChanged();
}

std::int64_t StorageStore::orphanTotal() const
{
    return corvane::orphanTotal(m_inventory.orphanGroups);
}

bool StorageStore::isRunning(const InstalledApp &app) const
{
    return !m_host.applications.running(marksOf(app)).empty();
}

bool StorageStore::isUninstalling(const std::string &bundlePath) const
{
    return std::ranges::find(m_uninstalls, bundlePath, &Uninstall::bundlePath) != m_uninstalls.end();
}

void StorageStore::uninstall(const InstalledApp &app, std::span<const Leftover> leftovers)
{
    if (isUninstalling(app.path))
        return;
    m_uninstalls.push_back({.bundlePath = app.path,
                            .entries = uninstallEntries(app, leftovers),
                            .seen = lookAtUninstall(app, leftovers, m_locations, m_host)});
    emit uninstallsChanged();
    const ProgramMarks marks = marksOf(app);
    const std::vector<std::int64_t> instances = m_host.applications.running(marks);
    for (const std::int64_t instance : instances)
        m_host.applications.requestQuit(instance, marks);
    if (instances.empty())
        uninstallIsDue(app.path);
    else
        QTimer::singleShot(m_timing.quitDelay, Qt::PreciseTimer, this, [this, path = app.path] {
            followRewrites(std::ranges::find(m_uninstalls, path, &Uninstall::bundlePath)->seen, path, m_host.files);
            uninstallIsDue(path);
        });
}

void StorageStore::uninstallIsDue(const std::string &bundlePath)
{
    std::ranges::find(m_uninstalls, bundlePath, &Uninstall::bundlePath)->stage = Uninstall::Stage::due;
    removeNextUninstall();
}

void StorageStore::removeNextUninstall()
{
    const auto next = std::ranges::find(m_uninstalls, Uninstall::Stage::due, &Uninstall::stage);
    if (next == m_uninstalls.end() || !m_removal.start(next->entries, false, next->seen))
        return;
    next->stage = Uninstall::Stage::removing;
    emit isRemovingChanged();
}

bool StorageStore::endUninstall()
{
    const bool hasEnded = std::erase_if(m_uninstalls, [](const Uninstall &uninstall) {
                              return uninstall.stage == Uninstall::Stage::removing;
                          }) > 0;
    if (hasEnded)
        emit uninstallsChanged();
    return hasEnded;
}

void StorageStore::followRemovalInApps(std::span<const SelectedEntry> gone, bool wasUninstall)
{
    const bool hasChanged = takeRemoved(m_inventory, gone);
    if (hasChanged)
        emit appsChanged();
    // An inventory that is still loading may include removed items.
    if (appsLoading() || (m_appsLoaded && (hasChanged || wasUninstall)))
        refreshApps();
}

} // namespace corvane
