#include "overview/ui/overview_presenter.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include <fmt/format.h>

#include "cleanup/cleanup_items.h"
#include "core/checked_add.h"
#include "core/scan_words.h"
#include "core/store/qt_words.h"
#include "lists/file_lists.h"
#include "map/treemap_builder.h"
#include "shell/ui/cleanup_words.h"
#include "shell/ui/elide_mode.h"
#include "shell/ui/file_icons.h"
#include "shell/ui/qt_color.h"
#include "shell/ui/scan_words.h"
#include "shell/ui/selecting.h"

namespace corvane {

namespace {

constexpr int clockInterval = 20'000; // milliseconds

QString filesText(std::int64_t count)
{
    return countText(count, "file", "files");
}

} // namespace

OverviewPresenter::OverviewPresenter(StorageStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    m_clock.setInterval(clockInterval);
    connect(&m_clock, &QTimer::timeout, this, &OverviewPresenter::changed);
    m_clock.start();
    connect(&m_store, &StorageStore::treeChanged, this, &OverviewPresenter::followTree);
    connect(&m_store, &StorageStore::cleanupChanged, this, &OverviewPresenter::followCleanup);
    connect(&m_store, &StorageStore::phaseChanged, this, &OverviewPresenter::changed);
    connect(&m_store, &StorageStore::volumeChanged, this, &OverviewPresenter::changed);
    connect(&m_store, &StorageStore::accessChanged, this, &OverviewPresenter::changed);
    followTree();
    followCleanup();
}

const FileNode *OverviewPresenter::root() const
{
    return m_store.root().get();
}

QString OverviewPresenter::subtitle() const
{
    if (isScanning())
        return scanningText(m_store);
    return hasScan() ? volumeName() + QStringLiteral(" · scanned ") + agoText(m_store.secondsSinceScan())
                     : QStringLiteral("Nothing scanned yet");
}

bool OverviewPresenter::isScanning() const
{
    return m_store.phase() == StorageStore::Phase::scanning;
}

bool OverviewPresenter::hasScan() const
{
    return root() != nullptr;
}

bool OverviewPresenter::needsAccess() const
{
    return !m_store.hasFullDiskAccess();
}

const SystemWords &OverviewPresenter::systemWords() const
{
    return m_store.words();
}

QString OverviewPresenter::accessTitle() const
{
    return displayText(systemWords().bannerTitle);
}

QString OverviewPresenter::accessText() const
{
    return displayText(systemWords().bannerText);
}

bool OverviewPresenter::hasAccessSettings() const
{
    return systemWords().accessIsInSettings;
}

// --- The volume

QString OverviewPresenter::volumeName() const
{
    return displayText(m_store.volume().name);
}

QString OverviewPresenter::usedText() const
{
    return sizeText(m_store.volume().total - m_store.volume().available);
}

QString OverviewPresenter::totalText() const
{
    return sizeText(m_store.volume().total);
}

QString OverviewPresenter::availableText() const
{
    return sizeText(m_store.volume().available);
}

double OverviewPresenter::usedFraction() const
{
    return m_store.volume().usedFraction();
}

QString OverviewPresenter::welcomeTitle() const
{
    return displayText(m_store.words().invitation);
}

QString OverviewPresenter::diskChoiceText() const
{
    return QStringLiteral("Everything readable on ") + volumeName() + u'.';
}

// --- The scan

void OverviewPresenter::followTree()
{
    readTypes();
    readTopItems();
    emit changed();
}

void OverviewPresenter::readTypes()
{
    std::vector<OverviewRow> types;
    m_typeParts.clear();
    for (const TypeSlice &slice : m_store.typeBreakdown()) {
        StackedBarPart part;
        part.id = displayText(slice.type.caseName());
        part.title = displayText(slice.type.label());
        part.info = sizeText(slice.size);
        part.color = toQColor(slice.type.color());
        part.size = slice.size;
        m_typeParts << part;
        types.push_back({.id = part.id,
                         .title = part.title,
                         .sizeText = part.info,
                         .color = part.color,
                         .leads = isOfFiles(slice.type)});
    }
    m_types.setRows(std::move(types));
}

void OverviewPresenter::readTopItems()
{
    std::vector<OverviewRow> items;
    if (const FileNode *const folder = root()) {
        // Folders have the colours of their positions in the map.
        std::unordered_map<const FileNode *, int> places;
        for (const TreemapItem &item : TreemapBuilder::items(*folder, TreemapBuilder::topLimit))
            places.emplace(item.node.get(), static_cast<int>(places.size()));
        const std::size_t count = std::min(folder->children.size(), topItemsListed);
        for (std::size_t i = 0; i < count; ++i) {
            const FileNode &node = *folder->children[i];
            const auto place = places.find(&node);
            const std::int64_t largest = folder->children.front()->size;
            items.push_back(
                {.id = displayText(node.path()),
                 .title = displayText(node.name),
                 .sizeText = sizeText(node.size),
                 .iconKey = fileIconKey(node),
                 .color = toQColor(
                     TreemapBuilder::itemColor(&node, place == places.end() ? static_cast<int>(i) : place->second)),
                 .fraction = largest > 0 ? static_cast<double>(node.size) / static_cast<double>(largest) : 0.0,
                 .elideMode = elideModeOf(node)});
        }
    }
    m_topItems.setRows(std::move(items));
}

QString OverviewPresenter::scannedLine() const
{
    return hasScan() ? QStringLiteral("Scanned ") + scannedName(m_store) +
                           QString::fromStdString(fmt::format(" in {:.1f} seconds", m_store.scanDuration()))
                     : QString();
}

QString OverviewPresenter::scannedFigures() const
{
    if (!hasScan())
        return {};
    QString text = filesText(root()->fileCount) + QStringLiteral(" · ") + sizeText(root()->size);
    if (const std::int64_t denied = m_store.deniedCount(); denied > 0)
        text += QStringLiteral(" · ") + QString::fromStdString(deniedText(denied));
    return text;
}

QString OverviewPresenter::largeFiles() const
{
    // The files are sorted by size, the largest first.
    const auto end =
        std::ranges::partition_point(m_store.allFiles(), [](const auto &file) { return file->size > largeFileLimit; });
    return countText(end - m_store.allFiles().begin());
}

QString OverviewPresenter::projectJunk() const
{
    std::int64_t total = 0;
    for (const DevJunkItem &item : m_store.devJunk())
        total = checkedAdd(total, item.node->size);
    return sizeText(total);
}

QString OverviewPresenter::typesFigures() const
{
    return hasScan() ? sizeText(root()->size) + QStringLiteral(" in ") + filesText(root()->fileCount) : QString();
}

QString OverviewPresenter::emptyText(const QString &ofFiles) const
{
    if (root()->unreadable)
        return QStringLiteral("This folder can't be read");
    if (root()->fileCount > 0)
        return ofFiles;
    if (m_store.deniedCount() > 0)
        return QStringLiteral("Nothing in this folder can be read");
    return m_store.scanIsPartial() ? QStringLiteral("Nothing found before the scan was stopped")
                                   : QStringLiteral("This folder is empty");
}

QString OverviewPresenter::noTypesText() const
{
    return hasScan() && m_types.rows().empty() ? emptyText(QStringLiteral("The files take up no space")) : QString();
}

QString OverviewPresenter::noTopItemsText() const
{
    return hasScan() && m_topItems.rows().empty() ? emptyText(QStringLiteral("All files are smaller than 1 MB"))
                                                  : QString();
}

QString OverviewPresenter::emptySymbol() const
{
    return hasScan() && root()->unreadable ? QStringLiteral("lock") : QStringLiteral("tray");
}

QString OverviewPresenter::topTitle() const
{
    return QStringLiteral("Biggest items in ") + scannedName(m_store);
}

QString OverviewPresenter::topFigures() const
{
    return hasScan() ? sizeText(root()->size) : QString();
}

void OverviewPresenter::openLargeFiles()
{
    m_store.showLargeFiles(std::nullopt);
}

void OverviewPresenter::openType(int row)
{
    if (row >= 0 && static_cast<std::size_t>(row) < m_store.typeBreakdown().size())
        m_store.showLargeFiles(m_store.typeBreakdown()[static_cast<std::size_t>(row)].type);
}

void OverviewPresenter::openTopItem(int row)
{
    if (prepareMenu(row))
        m_store.showInMap(std::shared_ptr<FileNode>(m_menuTarget.node()));
}

void OverviewPresenter::selectTopItem(int row)
{
    if (prepareMenu(row))
        selectItem(m_store, *m_menuTarget.node());
}

bool OverviewPresenter::prepareMenu(int row)
{
    if (root() == nullptr || row < 0 || row >= m_topItems.rowCount())
        return false;
    const FileNode &node = *root()->children[static_cast<std::size_t>(row)];
    m_menuTarget.setTarget(node.path(), node.size, node.kind);
    return true;
}

void OverviewPresenter::seeAll()
{
    m_store.showInMap(std::shared_ptr<FileNode>(m_store.root()));
}

// --- Quick wins

void OverviewPresenter::followCleanup()
{
    std::vector<OverviewRow> rows;
    for (const CleanupItem *const each : largestFirst(m_store.cleanupItems())) {
        const CleanupItem &item = *each;
        if (item.def->risk != CleanupRisk::safe || item.total() == 0 || rows.size() == quickWinsListed)
            continue;
        rows.push_back({.id = displayText(item.def->id),
                        .title = displayText(item.def->title),
                        .sizeText = corvane::totalText(item),
                        .countText = corvane::countText(item, m_store.words()),
                        .symbol = displayText(item.def->symbol),
                        .tint = static_cast<int>(item.def->tint)});
    }
    m_quickWins.setRows(std::move(rows));
    emit changed();
}

bool OverviewPresenter::isMeasuring() const
{
    return m_store.cleanupItems().empty() && m_store.cleanupLoading();
}

bool OverviewPresenter::isTidy() const
{
    return !m_store.cleanupItems().empty() && m_quickWins.rowCount() == 0;
}

QString OverviewPresenter::quickWinsText() const
{
    if (isMeasuring())
        return QStringLiteral("Measuring caches…");
    if (m_store.cleanupItems().empty())
        return {};
    return isTidy() ? QStringLiteral("Your caches look tidy. Nice!")
                    : sizeText(m_store.safeCleanupTotal()) + QStringLiteral(" of safe-to-clear junk");
}

void OverviewPresenter::openCleanup()
{
    m_store.setSidebar(StorageStore::SidebarItem::cleanup);
}

void OverviewPresenter::openAccessSettings()
{
    m_store.perform({BreakdownAction::Kind::fullDiskAccess, {}});
}

} // namespace corvane
