#include "core/store/storage_store.h"

#include <utility>

#include <fmt/format.h>

#include "core/store/file_url.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr int pollInterval = 150; // milliseconds

// A superseded walk ends before its next folder, which may take long on a slow disk; the newest walk does not wait for
// it.
constexpr int walksAtOnce = 4;

} // namespace

StorageStore::StorageStore(const Host &host, const ProtectedLocations &locations, StoreTiming timing, QObject *parent)
    : QObject(parent),
      m_host(host),
      m_locations(locations),
      m_timing(std::move(timing)),
      m_selected(host, locations),
      m_volume(VolumeInfo::current(host)),
      m_revealFailures([this](const Error &error) { showFailure("show", error.path, error.description()); }),
      m_scanJob([this](std::shared_ptr<ScanResult> result) { publishScan(std::move(result)); }, walksAtOnce),
      m_breakdownJob([this](DiskBreakdown breakdown) { publishBreakdown(std::move(breakdown)); }),
      m_cleanupJob([this](std::vector<CleanupItem> items) { publishCleanup(std::move(items)); }),
      m_cleanupCommandsJob([this](std::vector<AdminCommand> commands) { publishCleanupCommands(std::move(commands)); }),
      m_appsJob([this](AppInventory::Result result) { publishApps(std::move(result)); }),
      m_duplicatesJob([this](std::vector<DuplicateGroup> groups) { publishDuplicates(std::move(groups)); }),
      m_removal(host, locations, [this](const auto &outcome, bool permanently, const auto &remains) {
          didRemove(outcome, permanently, remains);
      })
{
    m_discards.setMaxThreadCount(1);
    m_timer.setInterval(pollInterval);
    connect(&m_timer, &QTimer::timeout, this, &StorageStore::publishCounters);
    refreshAccess();
}

StorageStore::~StorageStore()
{
    m_isClosing = true;
    // Ask all jobs to stop before waiting for any of them.
    m_scanJob.close();
    m_breakdownJob.close();
    m_cleanupJob.close();
    m_cleanupCommandsJob.close();
    m_appsJob.close();
    m_duplicatesJob.close();
    m_removal.close();
}

// --- The screen shown, and the explorer's folder

void StorageStore::setSidebar(SidebarItem item)
{
    if (m_sidebar == item)
        return;
    m_sidebar = item;
    emit sidebarChanged();
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
    if (node && m_tree.contains(*node))
        setCurrentFolder(node->kind == FileNode::Kind::file ? node->parent.lock() : node);
}

void StorageStore::openParent()
{
    if (!m_currentFolder || m_currentFolder == root())
        return;
    if (auto parent = m_currentFolder->parent.lock())
        setCurrentFolder(std::move(parent));
}

void StorageStore::showInMap(const std::shared_ptr<FileNode> &node)
{
    if (!node || !m_tree.contains(*node))
        return;
    open(node);
    setSidebar(SidebarItem::explorer);
}

void StorageStore::showLargeFiles(std::optional<FileType> type)
{
    m_largeFilesType = type;
    setSidebar(SidebarItem::large);
}

// --- The system

void StorageStore::refreshAccess()
{
    const bool granted = PathGuard::probeFullDiskAccess(m_host.files);
    if (granted == m_hasFullDiskAccess)
        return;
    m_hasFullDiskAccess = granted;
    emit accessChanged();
}

void StorageStore::setShowFeedback(bool show)
{
    if (m_showFeedback == show)
        return;
    m_showFeedback = show;
    emit showFeedbackChanged();
}

void StorageStore::refreshVolume()
{
    VolumeInfo volume = VolumeInfo::current(m_host);
    if (volume == m_volume)
        return;
    m_volume = std::move(volume);
    emit volumeChanged();
}

void StorageStore::reveal(const std::string &path)
{
    if (const auto shown = m_host.desktop.reveal(path, m_revealFailures.reporter()); !shown)
        showFailure("show", shown.error().path, shown.error().description());
}

void StorageStore::openFile(const std::string &path)
{
    // Some desktops launch the program even for a missing file and leave the error message to it.
    const auto opened = m_host.files.facts(path).and_then(
        [&](const auto &) { return m_host.desktop.openUrl(fileUrl(path).toStdString()); });
    if (!opened)
        showFailure("open", path, opened.error().description());
}

// --- The short message

void StorageStore::showToast(std::string text, bool warning)
{
    m_toast = std::move(text);
    m_toastIsWarning = warning;
    emit toastChanged();
}

void StorageStore::showFailure(std::string_view what, const std::string &path, const std::string &why)
{
    showToast(fmt::format("Can't {} {}: {}", what, lastPathComponent(path), why), true);
}

void StorageStore::dismissToast()
{
    if (!m_toast)
        return;
    m_toast.reset();
    emit toastChanged();
}

} // namespace corvane
