#include <chrono>
#include <utility>

#include "cleanup/dev_junk_rule.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/stoppable_files.h"
#include "core/store/storage_store.h"
#include "core/words/shared_texts.h"
#include "platform/path.h"

namespace corvane {

std::int64_t StorageStore::secondsSinceScan() const
{
    return m_scanEnd.isValid() ? m_scanEnd.elapsed() / 1000 : 0;
}

// --- Starting and stopping

std::optional<std::string> StorageStore::scannable(const std::string &path)
{
    std::string target = standardizedPath(path, m_locations.home());
    // The window is blocked meanwhile.
    const auto begin = std::chrono::steady_clock::now();
    StoppableFiles files(m_host.files, target, {.isOver = [&] {
                             return std::chrono::steady_clock::now() - begin > std::chrono::seconds(1);
                         }});
    auto facts = files.facts(target);
    if (facts && facts->type == EntryType::symbolicLink) {
        const auto real = files.realPath(target);
        facts = real ? files.facts(*real) : Expected<ItemFacts>(tl::unexpected(real.error()));
        // Keep the name of a home folder that is a link: its places are known by that name.
        if (real && target != m_locations.home())
            target = *real;
    }
    if (facts && facts->type == EntryType::directory)
        return target;
    showFailure("scan", target, facts ? "it is not a folder" : facts.error().description());
    return std::nullopt;
}

void StorageStore::scan(const std::string &path)
{
    const std::optional<std::string> target = scannable(path);
    if (!target)
        return;
    refreshAccess();
    if (*target != m_lastScanPath)
        m_folderToShow.clear();
    else if (m_currentFolder)
        m_folderToShow = m_currentFolder->path();
    clearScan();
    m_scanStart.start();
    m_lastScanPath = *target;
    m_scanJob.start([this, target = *target](ScanProgress &progress) {
        auto result = std::make_shared<ScanResult>();
        result->root = Scanner::scan(target, progress, m_host.files);
        StoppableFiles files(m_host.files, target, Scanner::waiting(progress));
        result->summary = ScanSummary::make(result->root, DevJunkRule::match, files);
        result->types = ScanSummary::types(*result->root);
        return result;
    });
    m_timer.start();
    if (!m_fullSpeed)
        m_fullSpeed = m_host.desktop.keepAtFullSpeed("Scanning a folder");
    setPhase(Phase::scanning);
}

void StorageStore::scanHome()
{
    scan(m_locations.home());
}

void StorageStore::scanEntireDisk()
{
    scan("/");
}

void StorageStore::rescan()
{
    scan(m_lastScanPath.empty() ? m_locations.home() : std::string(m_lastScanPath));
}

void StorageStore::chooseFolder()
{
    emit folderWanted();
}

void StorageStore::stopScan()
{
    if (m_phase == Phase::scanning)
        progress()->cancel();
}

void StorageStore::setPhase(Phase phase)
{
    if (m_phase == phase)
        return;
    m_phase = phase;
    if (m_phase != Phase::scanning)
        m_fullSpeed.reset();
    emit phaseChanged();
}

void StorageStore::clearScan()
{
    auto discarded = std::make_shared<InstalledTree>(std::exchange(m_tree, {}));
    m_counters = {};
    m_removedDuringScan.clear();
    ++m_revision;
    dropOutdatedBreakdown();

    clearDuplicates();

    setCurrentFolder(nullptr);
    emit treeChanged();
    emit progressChanged();
    emit revisionChanged();
    discard(std::move(discarded));
}

// Freeing a large tree takes too long for the main thread.
void StorageStore::discard(std::shared_ptr<void> held)
{
    m_discards.start([held = std::move(held)]() mutable { held.reset(); });
}

void StorageStore::publishCounters()
{
    m_counters = progress()->counters();
    emit progressChanged();
}

// --- Finishing

void StorageStore::finishScan(std::shared_ptr<ScanResult> result, const std::shared_ptr<ScanProgress> &token)
{
    m_scanJob.finish(std::move(result), token);
}

void StorageStore::publishScan(std::shared_ptr<ScanResult> result)
{
    if (m_phase != Phase::scanning) {
        discard(std::move(result));
        return;
    }
    if (!m_removedDuringScan.empty()) {
        checkRemovalsDuringScan(std::move(result));
        return;
    }
    m_timer.stop();
    const std::shared_ptr<ScanProgress> walk = progress();
    if (const std::optional<Error> failure = walk->failure()) {
        showFailure("scan", m_lastScanPath, scanFailureText(*failure));
        endScanWithoutTree(std::move(result));
        return;
    }
    if (isRootGone(*result->root, result->removedMeanwhile)) {
        endScanWithoutTree(std::move(result));
        return;
    }
    m_tree = InstalledTree(std::move(result->root), std::move(result->summary), std::move(result->types),
                           {.seconds = static_cast<double>(m_scanStart.elapsed()) / 1000.0,
                            .deniedCount = walk->counters().denied,
                            .isPartial = walk->isCancelled()});
    updateTree(result->removedMeanwhile, {});
    m_scanEnd.start();
    ++m_revision;
    if (!scanIsPartial() && m_selected.resizeFrom(m_tree))
        emit selectionChanged();

    publishCounters();
    refreshVolume();
    setCurrentFolder(m_tree.nearestFolder(m_folderToShow));
    emit treeChanged();
    emit revisionChanged();
    setPhase(Phase::ready);
    if (scanIsPartial())
        showToast(std::string(stoppedScanText));
    refreshBreakdown();
    // A running measurement is as recent as the scan.
    if (!cleanupLoading())
        refreshCleanup();
}

void StorageStore::endScanWithoutTree(std::shared_ptr<ScanResult> result)
{
    discard(std::move(result));
    clearScan();
    setPhase(Phase::idle);
}

// Items removed during the walk may be in its tree. Whether one was recreated before the walk saw it has to be checked
// on disk, which is too slow for the main thread; more may be removed meanwhile, so the result passes through here
// again.
void StorageStore::checkRemovalsDuringScan(std::shared_ptr<ScanResult> result)
{
    m_scanJob.proceed(
        [this, removed = std::exchange(m_removedDuringScan, {}), result = std::move(result)](const ScanProgress &) {
            for (const SelectedEntry &entry : removed) {
                if (!m_host.files.exists(entry.path))
                    result->removedMeanwhile.push_back(entry);
            }
            return result;
        });
}

} // namespace corvane
