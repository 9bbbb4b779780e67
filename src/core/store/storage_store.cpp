#include "core/store/storage_store.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <mutex>
#include <unordered_set>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>

#include "cleanup/dev_junk_rule.h"
#include "core/foreign_sum.h"
#include "core/scan_words.h"
#include "core/scanner.h"
#include "core/store/path_text.h"
#include "disk/disk_accountant.h"

namespace corvane {

namespace {

constexpr int pollInterval = 150; // milliseconds
constexpr int removalWait = 20;   // milliseconds

// A superseded walk, its successor, a removal and the freeing of an old tree may all be under way at once;
// none of them may wait for another.
constexpr int poolThreads = 6;

std::string nameOf(const std::string &path)
{
    return std::string(lastPathComponent(path));
}

/// Whether the item, or a folder that contains it, is among what was removed.
bool isGone(const std::string &path, std::span<const SelectedEntry> removed)
{
    return std::ranges::any_of(
        removed, [&path](const SelectedEntry &entry) { return path == entry.path || liesBeneath(path, entry.path); });
}

/// Forgets a path and what lies beneath it; whether there was any of it.
template <typename Paths>
bool eraseWithContents(Paths &paths, const std::string &path)
{
    const std::size_t before = paths.size();
    paths.erase(path);
    // In the order of bytes "0" comes right after "/".
    paths.erase(paths.lower_bound(path + "/"), paths.lower_bound(path + "0"));
    return paths.size() != before;
}

EntryType entryType(FileNode::Kind kind)
{
    return kind == FileNode::Kind::file ? EntryType::file : EntryType::directory;
}

/// What is left at a path, as the root of a tree; null where there is nothing that a tree shows.
std::shared_ptr<FileNode> measuredAnew(const std::string &path, ScanProgress &progress, FileSystem &files)
{
    const Expected<ItemFacts> facts = files.facts(path);
    if (!facts || facts->type == EntryType::symbolicLink)
        return nullptr;
    if (facts->type == EntryType::directory)
        return Scanner::scan(path, progress, files);
    auto file = std::make_shared<FileNode>(path, FileNode::Kind::file);
    file->size = isPlausibleSize(facts->allocated) ? facts->allocated : 0;
    file->modified = facts->modified;
    return file;
}

void collectSubtree(const FileNode &top, std::unordered_set<const FileNode *> &into)
{
    std::vector<const FileNode *> pending{&top};
    while (!pending.empty()) {
        const FileNode *node = pending.back();
        pending.pop_back();
        into.insert(node);
        for (const auto &child : node->children)
            pending.push_back(child.get());
    }
}

// Where the explorer goes when the folder that it shows is gone: the nearest folder around it that is not.
std::shared_ptr<FileNode> shownInstead(const FileNode &folder, const std::unordered_set<const FileNode *> &gone,
                                       const std::shared_ptr<FileNode> &root)
{
    std::shared_ptr<FileNode> around = folder.parent.lock();
    while (around && gone.contains(around.get()))
        around = around->parent.lock();
    return around ? around : root;
}

} // namespace

/// Receives what the desktop reports from its own threads, also after the store is gone.
struct StorageStore::LateFailures {
    explicit LateFailures(StorageStore *receiver) : store(receiver) {}

    void report(const Error &error)
    {
        const std::lock_guard lock(mutex);
        if (store == nullptr)
            return;
        QMetaObject::invokeMethod(
            store, [receiver = store, error] { receiver->showRevealFailure(error); }, Qt::QueuedConnection);
    }

    std::mutex mutex;
    StorageStore *store; // guarded by the mutex; null when it is gone
};

StorageStore::StorageStore(const Host &host, const ProtectedLocations &locations, QObject *parent)
    : QObject(parent),
      m_host(host),
      m_locations(locations),
      m_volume(VolumeInfo::current(host)),
      m_lateFailures(std::make_shared<LateFailures>(this))
{
    m_pool.setMaxThreadCount(poolThreads);
    m_timer.setInterval(pollInterval);
    connect(&m_timer, &QTimer::timeout, this, &StorageStore::publishCounters);
    probeAccess();
}

StorageStore::~StorageStore()
{
    m_isClosing = true;
    {
        const std::lock_guard lock(m_lateFailures->mutex);
        m_lateFailures->store = nullptr;
    }
    m_removalStop = true; // no further item is touched
    if (m_progress)
        m_progress->cancel();
    m_breakdownJob.close();
    m_cleanupJob.close();
    // A removal may wait for the main thread: some of the system's services answer only there.
    while (m_isRemoving && !m_pool.waitForDone(removalWait))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_pool.waitForDone();
    // A removal's outcome that is still under way is not lost to the log.
    QCoreApplication::sendPostedEvents(this);
}

void StorageStore::setSidebar(SidebarItem item)
{
    if (m_sidebar == item)
        return;
    m_sidebar = item;
    emit sidebarChanged();
}

void StorageStore::setPhase(Phase phase)
{
    if (m_phase == phase)
        return;
    m_phase = phase;
    emit phaseChanged();
}

void StorageStore::probeAccess()
{
    const bool granted = PathGuard::probeFullDiskAccess(m_host.files);
    if (granted == m_hasFullDiskAccess)
        return;
    m_hasFullDiskAccess = granted;
    emit accessChanged();
}

void StorageStore::refreshVolume()
{
    VolumeInfo volume = VolumeInfo::current(m_host);
    if (volume == m_volume)
        return;
    m_volume = std::move(volume);
    emit volumeChanged();
}

// --- Scanning

void StorageStore::scan(const std::string &path)
{
    std::string target = standardizedPath(path, m_locations.home());
    auto facts = m_host.files.facts(target);
    if (facts && facts->type == EntryType::symbolicLink) {
        const auto real = m_host.files.realPath(target);
        facts = real ? m_host.files.facts(*real) : Expected<ItemFacts>(tl::unexpected(real.error()));
        // A home that is a link keeps its name, by which its places are known.
        if (real && target != m_locations.home())
            target = *real;
    }
    if (!facts) {
        showToast("Can't scan " + nameOf(target) + ": " + facts.error().description(), true);
        return;
    }
    if (facts->type != EntryType::directory) {
        showToast("Can't scan " + nameOf(target) + ": it is not a folder", true);
        return;
    }

    if (m_progress && m_phase == Phase::scanning)
        m_progress->cancel();
    m_progress = std::make_shared<ScanProgress>();
    probeAccess();
    if (target != m_lastScanPath)
        m_folderToShow.clear();
    else if (m_currentFolder)
        m_folderToShow = m_currentFolder->path();
    clearScan();
    m_scanStart.start();
    m_lastScanPath = target;
    m_timer.start();
    setPhase(Phase::scanning);

    m_pool.start([this, target, token = m_progress] {
        auto result = std::make_shared<ScanResult>();
        result->root = Scanner::scan(target, *token, m_host.files);
        result->summary = ScanSummary::make(result->root, DevJunkRule::match, m_host.files);
        result->types = ScanSummary::types(*result->root);
        QMetaObject::invokeMethod(
            this, [this, result = std::move(result), token]() mutable { finishScan(std::move(result), token); },
            Qt::QueuedConnection);
    });
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
        m_progress->cancel();
}

void StorageStore::clearScan()
{
    // Letting go of a large tree takes time that the window should not wait for.
    struct Discarded {
        std::shared_ptr<FileNode> root;
        std::vector<std::shared_ptr<FileNode>> allFiles;
        std::vector<DevJunkItem> devJunk;
        PathIndex index;
    };
    auto discarded = std::make_shared<Discarded>();
    discarded->root = std::exchange(m_root, nullptr);
    discarded->allFiles = std::exchange(m_allFiles, {});
    discarded->devJunk = std::exchange(m_devJunk, {});
    discarded->index = std::exchange(m_index, PathIndex());
    m_typeBreakdown.clear();
    m_unreadableCount = 0;
    m_deniedCount = 0;
    m_scannedFiles = 0;
    m_scannedBytes = 0;
    m_currentPath.clear();
    m_scanDuration = 0;
    m_scanIsPartial = false;
    m_removedDuringScan.clear();
    ++m_revision;
    if (m_breakdownJob.isLoading() && m_breakdownHasTree) {
        // It is about a tree that is no longer there. The last one stays to be looked at until the next; where there
        // is none, the scan may take long, and the disk is told without it.
        if (m_breakdown) {
            m_breakdownJob.drop();
            emit breakdownChanged();
        } else {
            refreshBreakdown();
        }
    }

    setCurrentFolder(nullptr);
    emit treeChanged();
    emit progressChanged();
    emit revisionChanged();
    discard(std::move(discarded));
}

void StorageStore::discard(std::shared_ptr<void> held)
{
    m_pool.start([held = std::move(held)]() mutable { held.reset(); });
}

void StorageStore::publishCounters()
{
    auto counters = m_progress->counters();
    m_scannedFiles = counters.files;
    m_scannedBytes = counters.bytes;
    m_currentPath = std::move(counters.current);
    emit progressChanged();
}

void StorageStore::finishScan(std::shared_ptr<ScanResult> result, const std::shared_ptr<ScanProgress> &token)
{
    if (token != m_progress || m_phase != Phase::scanning) {
        discard(std::move(result));
        return;
    }
    if (!m_removedDuringScan.empty()) {
        applyRemovalsDuringScan(std::move(result), token);
        return;
    }
    m_timer.stop();
    if (const std::optional<Error> failure = token->failure()) {
        showToast("Can't scan " + nameOf(m_lastScanPath) + ": " + scanFailureText(*failure), true);
        discard(std::move(result));
        clearScan();
        setPhase(Phase::idle);
        return;
    }
    if (isGone(result->root->path(), result->removedMeanwhile)) {
        discard(std::move(result));
        clearScan();
        setPhase(Phase::idle);
        return;
    }
    m_scanDuration = static_cast<double>(m_scanStart.elapsed()) / 1000.0;
    m_scanEnd.start();
    m_root = std::move(result->root);
    m_index = std::move(result->summary.index);
    m_allFiles = std::move(result->summary.allFiles);
    m_devJunk = std::move(result->summary.devJunk);
    m_unreadableCount = result->summary.unreadableCount;
    m_deniedCount = token->counters().denied;
    m_typeBreakdown = std::move(result->types);
    m_scanIsPartial = token->isCancelled();
    ++m_revision;

    if (dropFromTree(result->removedMeanwhile))
        m_typeBreakdown = ScanSummary::types(*m_root);
    if (!m_scanIsPartial)
        refreshSelectedSizes();

    publishCounters();
    refreshVolume();
    setCurrentFolder(folderToShow());
    emit treeChanged();
    emit revisionChanged();
    setPhase(Phase::ready);
    if (m_scanIsPartial)
        showToast("Scan stopped — showing partial results");
    refreshBreakdown();
    // One that is under way is as new as the scan.
    if (!m_cleanupJob.isLoading())
        refreshCleanup();
}

// A folder that is gone gives way to the nearest one around it.
std::shared_ptr<FileNode> StorageStore::folderToShow() const
{
    const std::string root = m_root->path();
    for (std::string path = m_folderToShow; liesBeneath(path, root); path.resize(containingFolder(path).size())) {
        if (std::shared_ptr<FileNode> folder = sharedNode(path); folder && folder->kind != FileNode::Kind::file)
            return folder;
    }
    return m_root;
}

// What was removed while the walk ran may be in its tree. Whether it came back before the walk saw it is asked
// of the disk, which is no work for the main thread; meanwhile more may have gone, so the result comes by again.
void StorageStore::applyRemovalsDuringScan(std::shared_ptr<ScanResult> result,
                                           const std::shared_ptr<ScanProgress> &token)
{
    auto removed = std::exchange(m_removedDuringScan, {});
    m_pool.start([this, removed = std::move(removed), result = std::move(result), token]() mutable {
        std::erase_if(removed, [this](const SelectedEntry &entry) { return m_host.files.exists(entry.path); });
        result->removedMeanwhile.insert(result->removedMeanwhile.end(), removed.begin(), removed.end());
        QMetaObject::invokeMethod(
            this, [this, result = std::move(result), token]() mutable { finishScan(std::move(result), token); },
            Qt::QueuedConnection);
    });
}

std::int64_t StorageStore::secondsSinceScan() const
{
    return m_scanEnd.isValid() ? m_scanEnd.elapsed() / 1000 : 0;
}

void StorageStore::setCurrentFolder(std::shared_ptr<FileNode> folder)
{
    if (m_currentFolder == folder)
        return;
    m_currentFolder = std::move(folder);
    emit currentFolderChanged();
}

void StorageStore::open(const std::shared_ptr<FileNode> &node)
{
    if (node && isInTree(*node))
        setCurrentFolder(node->kind == FileNode::Kind::file ? node->parent.lock() : node);
}

std::shared_ptr<FileNode> StorageStore::sharedNode(std::string_view path) const
{
    const FileNode *const found = node(path);
    if (found == nullptr || found == m_root.get())
        return found == nullptr ? nullptr : m_root;
    const std::shared_ptr<FileNode> folder = found->parent.lock();
    const auto position = std::ranges::find(folder->children, found, &std::shared_ptr<FileNode>::get);
    return position == folder->children.end() ? nullptr : *position;
}

void StorageStore::showInMap(const std::shared_ptr<FileNode> &node)
{
    if (!node || !isInTree(*node))
        return;
    open(node);
    setSidebar(SidebarItem::explorer);
}

void StorageStore::openParent()
{
    if (!m_currentFolder || m_currentFolder == m_root)
        return;
    if (auto parent = m_currentFolder->parent.lock())
        setCurrentFolder(std::move(parent));
}

// --- The breakdown of the disk

ScanContext StorageStore::makeScanContext() const
{
    ScanContext context = m_root ? ScanContext::of(*m_root, m_unreadableCount) : ScanContext();
    context.isPartial = m_scanIsPartial;
    context.hasFullDiskAccess = m_hasFullDiskAccess;
    return context;
}

void StorageStore::refreshBreakdown()
{
    if (m_isClosing)
        return;
    m_breakdownHasTree = m_root != nullptr;
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
            showToast("Can't open the settings for Full Disk Access", true);
        break;
    }
}

void StorageStore::reveal(const std::string &path)
{
    const auto shown =
        m_host.desktop.reveal(path, [failures = m_lateFailures](const Error &error) { failures->report(error); });
    if (!shown)
        showRevealFailure(shown.error());
}

void StorageStore::showRevealFailure(const Error &error)
{
    showToast("Can't show " + nameOf(error.path) + ": " + error.description(), true);
}

void StorageStore::openFile(const std::string &path)
{
    // Some desktops start the program for a file that is gone, and leave the message to it.
    const auto opened = m_host.files.facts(path).and_then(
        [&](const auto &) { return m_host.desktop.openUrl(fileUrl(path).toStdString()); });
    if (!opened)
        showToast("Can't open " + nameOf(path) + ": " + opened.error().description(), true);
}

// --- Selection

bool StorageStore::isProtected(std::string_view path) const
{
    return m_locations.isProtected(path, m_host.files);
}

bool StorageStore::isSelected(const std::string &path) const
{
    return m_selection.contains(path);
}

bool StorageStore::isCovered(const std::string &path) const
{
    return m_selection.contains(path) || hasSelectedAncestor(m_selection, path);
}

void StorageStore::setSelected(const std::string &path, std::int64_t size, bool selected)
{
    const SelectedEntry entry{path, size};
    setSelected(std::span(&entry, 1), selected);
}

void StorageStore::setSelected(std::span<const SelectedEntry> entries, bool selected)
{
    bool changed = false;
    std::vector<SelectedEntry> added;
    for (const SelectedEntry &entry : entries) {
        if (!selected) {
            changed |= m_selection.erase(entry.path) > 0;
            m_seen.erase(entry.path);
        } else if (!isProtected(entry.path)) {
            const auto [position, inserted] = m_selection.try_emplace(entry.path, entry.size);
            changed |= inserted || position->second != entry.size;
            position->second = entry.size;
            if (inserted)
                added.push_back(entry);
        }
    }
    if (!added.empty()) {
        for (auto &[path, seen] : Removal::look(added, m_locations, m_host)) {
            // What was chosen is what the tree shows, a file or a folder.
            if (const FileNode *shown = node(path))
                seen.identity.type = entryType(shown->kind);
            m_seen.insert_or_assign(path, seen);
        }
    }
    if (changed)
        emit selectionChanged();
}

void StorageStore::clearSelection()
{
    m_seen.clear();
    if (m_selection.empty())
        return;
    m_selection.clear();
    emit selectionChanged();
}

bool StorageStore::deselectWithContents(const std::string &path)
{
    eraseWithContents(m_seen, path);
    return eraseWithContents(m_selection, path);
}

// The selection outlives a rescan; its sizes follow what the new walk has found.
void StorageStore::refreshSelectedSizes()
{
    bool changed = false;
    for (auto &[path, size] : m_selection) {
        const FileNode *node = m_index.find(path);
        if (node == nullptr || node->size == size)
            continue;
        size = node->size;
        changed = true;
    }
    if (changed)
        emit selectionChanged();
}

Selection StorageStore::effectiveSelection() const
{
    return corvane::effectiveSelection(m_selection);
}

std::int64_t StorageStore::selectedTotal() const
{
    return totalSize(effectiveSelection());
}

std::vector<SelectedEntry> StorageStore::selectedEntries() const
{
    return corvane::selectedEntries(effectiveSelection());
}

// --- Removal

std::vector<SelectedEntry> StorageStore::selectedInTrash() const
{
    std::vector<SelectedEntry> entries = selectedEntries();
    std::erase_if(entries, [this](const SelectedEntry &entry) {
        const auto seen = m_seen.find(entry.path);
        return seen == m_seen.end() || !seen->second.isInTrash;
    });
    return entries;
}

void StorageStore::remove(const Selection &entries, bool permanently)
{
    if (m_isRemoving || entries.empty())
        return;
    m_isRemoving = true;
    m_removalStop = false;
    emit isRemovingChanged();
    m_pool.start([this, entries, permanently, seen = m_seen] {
        const auto steps = Removal::plan(entries, permanently, m_locations, m_host.trash.trashFolders(), seen);
        RemovalOutcome outcome = Removal::perform(steps, m_locations, m_host, m_removalStop);
        std::vector<std::shared_ptr<FileNode>> remains;
        for (RemovalFailure &failure : outcome.failures) {
            if (m_isClosing)
                break;
            if (failure.left != RemovalFailure::Left::aPart && failure.left != RemovalFailure::Left::somethingElse)
                continue;
            ScanProgress progress;
            if (std::shared_ptr<FileNode> left = measuredAnew(failure.path, progress, m_host.files))
                remains.push_back(std::move(left));
            else if (failure.left == RemovalFailure::Left::somethingElse)
                failure.left = RemovalFailure::Left::nothing; // what took its place is nothing that a tree shows
        }
        QMetaObject::invokeMethod(
            this, [this, outcome, permanently, remains] { didRemove(outcome, permanently, remains); },
            Qt::QueuedConnection);
    });
}

void StorageStore::stopRemoval()
{
    if (!m_isRemoving || m_removalStop)
        return;
    m_removalStop = true;
    emit isRemovingChanged();
}

bool StorageStore::dropFromTree(std::span<const SelectedEntry> removed)
{
    // Thousands may go at once: each folder and each list is gone through once.
    std::map<std::shared_ptr<FileNode>, std::unordered_set<const FileNode *>> leaving;
    for (const SelectedEntry &entry : removed) {
        FileNode *const node = m_index.find(entry.path);
        if (const std::shared_ptr<FileNode> folder = node != nullptr ? node->parent.lock() : nullptr)
            leaving[folder].insert(node);
    }
    // Kept until no list refers to them any more, and let go of elsewhere.
    auto held = std::make_shared<std::vector<std::shared_ptr<FileNode>>>();
    std::unordered_set<const FileNode *> gone;
    for (const auto &[folder, nodes] : leaving) {
        const std::size_t first = held->size();
        std::ranges::copy_if(folder->children, std::back_inserter(*held),
                             [&nodes = nodes](const auto &child) { return nodes.contains(child.get()); });
        for (std::size_t i = first; i < held->size(); ++i) {
            FileNode &node = *(*held)[i];
            collectSubtree(node, gone);
            m_index.eraseSubtree(node);
            detach(node);
        }
    }
    if (gone.empty())
        return false;
    if (m_currentFolder && gone.contains(m_currentFolder.get()))
        setCurrentFolder(shownInstead(*m_currentFolder, gone, m_root));

    std::erase_if(m_allFiles, [&gone](const auto &file) {
        const bool isShrunkPackage = file->kind == FileNode::Kind::package && file->size < Scanner::smallFileLimit;
        return isShrunkPackage || gone.contains(file.get());
    });
    // A build folder that was emptied is no more offered than one that a scan finds empty.
    std::erase_if(m_devJunk,
                  [&gone](const DevJunkItem &item) { return item.node->size < 1 || gone.contains(item.node.get()); });
    // What contained a removed item has become smaller.
    std::ranges::stable_sort(m_allFiles, std::ranges::greater(), &FileNode::size);
    std::ranges::stable_sort(m_devJunk, std::ranges::greater(),
                             [](const DevJunkItem &item) { return item.node->size; });
    discard(std::move(held));
    return true;
}

bool StorageStore::replaceInTree(std::span<const std::shared_ptr<FileNode>> remains)
{
    // Kept until no list refers to them any more, and let go of elsewhere.
    auto held = std::make_shared<std::vector<std::shared_ptr<FileNode>>>();
    std::string shown = m_currentFolder ? m_currentFolder->path() : std::string();
    for (const std::shared_ptr<FileNode> &measured : remains) {
        std::shared_ptr<FileNode> old = sharedNode(measured->path());
        const std::shared_ptr<FileNode> folder = old ? old->parent.lock() : nullptr;
        if (folder == nullptr)
            continue;
        m_index.eraseSubtree(*old);
        detach(*old);
        attach(folder, *measured);
        held->push_back(std::move(old));
    }
    if (held->empty())
        return false;
    ScanSummary summary = ScanSummary::make(m_root, DevJunkRule::match, m_host.files);
    m_index = std::move(summary.index);
    m_allFiles = std::move(summary.allFiles);
    m_devJunk = std::move(summary.devJunk);
    m_unreadableCount = summary.unreadableCount;
    if (m_currentFolder && !isInTree(*m_currentFolder)) {
        m_folderToShow = std::move(shown);
        setCurrentFolder(folderToShow());
    }
    discard(std::move(held));
    return true;
}

// The tree changes from what really happened alone.
void StorageStore::updateTree(std::span<const SelectedEntry> gone, std::span<const std::shared_ptr<FileNode>> remains)
{
    const auto concernsScan = [&](const std::string &root) {
        return std::ranges::any_of(remains, [&](const auto &measured) {
            const std::string path = measured->path();
            return path == root || liesBeneath(root, path) || (m_phase == Phase::scanning && liesBeneath(path, root));
        });
    };
    if (m_root && isGone(m_root->path(), gone)) {
        clearScan();
        setPhase(Phase::idle);
        return;
    }
    if ((m_root || m_phase == Phase::scanning) && concernsScan(m_lastScanPath)) {
        // What is left of the scanned folder itself, or of what a walk may have seen whole.
        rescan();
        return;
    }
    if (m_root) {
        const bool hasDropped = dropFromTree(gone);
        if (!replaceInTree(remains) && !hasDropped)
            return;
        m_typeBreakdown = ScanSummary::types(*m_root);
        ++m_revision;
        emit treeChanged();
        emit revisionChanged();
    } else if (m_phase == Phase::scanning) {
        m_removedDuringScan.insert(m_removedDuringScan.end(), gone.begin(), gone.end());
    }
}

void StorageStore::didRemove(const RemovalOutcome &outcome, bool permanently,
                             const std::vector<std::shared_ptr<FileNode>> &remains)
{
    std::vector<SelectedEntry> gone = outcome.removed;
    bool selectionHasChanged = false;
    for (const RemovalFailure &failure : outcome.failures) {
        const auto selected = m_selection.find(failure.path);
        const std::int64_t size = selected == m_selection.end() ? 0 : selected->second;
        const std::optional<SeenItem> seen =
            m_seen.contains(failure.path) ? std::optional(m_seen.at(failure.path)) : std::nullopt;
        switch (failure.left) {
        case RemovalFailure::Left::asItWas:
            break;
        case RemovalFailure::Left::nothing:
            gone.push_back({failure.path, size});
            break;
        case RemovalFailure::Left::somethingElse:
            // To be chosen anew by who wants that one removed.
            selectionHasChanged |= deselectWithContents(failure.path);
            break;
        case RemovalFailure::Left::aPart:
            if (selected == m_selection.end())
                break;
            // What resisted stays selected; of what was selected inside, nobody knows.
            selectionHasChanged |= deselectWithContents(failure.path);
            m_selection.emplace(failure.path, std::max<std::int64_t>(0, size - failure.freed));
            if (seen)
                m_seen.emplace(failure.path, *seen);
            break;
        }
    }
    // What was selected inside a removed folder is gone with it.
    for (const SelectedEntry &entry : gone)
        selectionHasChanged |= deselectWithContents(entry.path);

    updateTree(gone, remains);
    if (!remains.empty())
        refreshSelectedSizes();
    dropFromCleanup(gone);

    if (selectionHasChanged)
        emit selectionChanged();
    if (const std::string lines = Removal::logText(outcome); !lines.empty())
        m_host.desktop.log(lines);
    m_isRemoving = false;
    emit isRemovingChanged();
    refreshVolume();
    showToast(Removal::message(outcome, permanently), !outcome.failures.empty());
    refreshBreakdown();
    refreshCleanup();
}

// --- Messages

void StorageStore::showToast(std::string text, bool warning)
{
    m_toast = std::move(text);
    m_toastIsWarning = warning;
    emit toastChanged();
}

void StorageStore::dismissToast()
{
    if (!m_toast)
        return;
    m_toast.reset();
    emit toastChanged();
}

} // namespace corvane
