#include "screenshots/photographer.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QtTest/QTest>

#include "core/systems/cleanup_table.h"
#include "map/treemap_builder.h"
#include "screenshots/shaped_disk.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr int width = 1280;
constexpr int height = 800;

} // namespace

Photographer::Photographer(QQuickWindow &window, StorageStore &store, Services &services, const QDir &folder,
                           QStringList wanted)
    : m_driver(window), m_store(store), m_services(services), m_folder(folder), m_wanted(std::move(wanted))
{
    m_driver.resize(width, height);
    m_driver.pointAtNothing();
}

void Photographer::takeAll()
{
    takeOverviewBeforeScan();
    takeBreakdownBeforeScan();
    takeCleanupWithoutScan();
    takeUninstaller();
    takeScanning();
    takeOverview();
    takeBreakdown();
    takeMap();
    takeMenus();
    takeSelection();
    takeRemoval();
    takeDrop();
    takeLists();
    takeDuplicates();
    takeCleanup();
    takeEmptyFolders();
    takeServices();
}

void Photographer::takeScanning()
{
    show(StorageStore::SidebarItem::duplicates);
    take(QStringLiteral("duplicates-noscan"));
    show(StorageStore::SidebarItem::explorer);
    take(QStringLiteral("scan-prompt"));
    slowDownListings(std::chrono::milliseconds(40));
    m_driver.click(m_driver.item(QStringLiteral("requiresScan.scan")));
    m_driver.pointAtNothing();
    m_driver.waitFor([&] { return m_store.scannedFiles() > m_example.filesUnderWay; },
                     QStringLiteral("a scan under way"));
    takeMoving(QStringLiteral("scan-progress"));
    show(StorageStore::SidebarItem::overview);
    takeMoving(QStringLiteral("overview-scanning"));
    show(StorageStore::SidebarItem::explorer);
    slowDownListings(std::chrono::milliseconds(0));
    m_driver.waitFor([&] { return m_store.phase() == StorageStore::Phase::ready; }, QStringLiteral("the scan's end"));
}

void Photographer::takeMap()
{
    take(QStringLiteral("explorer"));
    QQuickItem &map = m_driver.item(QStringLiteral("map"));
    m_driver.pointAt(map, tile("Drone Footage"));
    take(QStringLiteral("explorer-hover"));
    m_driver.pointAtNothing();

    takeMinimum(QStringLiteral("explorer-min"));

    tabTo(map);
    m_driver.press(Qt::Key_Right);
    m_driver.press(Qt::Key_Down);
    take(QStringLiteral("explorer-keyboard"));
}

void Photographer::takeMenus()
{
    m_driver.click(m_driver.item(QStringLiteral("scanMenuButton")));
    take(QStringLiteral("scan-menu"));
    dismiss();
    m_driver.click(m_driver.item(QStringLiteral("appMenuButton")));
    take(QStringLiteral("app-menu"));
    dismiss();
    m_driver.clickAt(m_driver.item(QStringLiteral("map")), tile("Pictures"), Qt::RightButton);
    take(QStringLiteral("map-menu"));
    dismiss();

    m_driver.click(m_driver.item(QStringLiteral("appMenuButton")));
    m_driver.click(m_driver.item(QStringLiteral("appMenu.about")));
    m_driver.pointAtNothing();
    take(QStringLiteral("about"));
    dismiss();
}

void Photographer::takeSelection()
{
    m_driver.clickAt(m_driver.item(QStringLiteral("map")), tile(m_example.videos));
    m_driver.waitFor([&] { return m_store.currentFolder()->name == m_example.videos; },
                     QStringLiteral("the opened folder"));
    m_driver.pointAtNothing();
    take(QStringLiteral("explorer-folder"));
    tick("Exports");
    tick("Talk rehearsal, take 3.mov");
    m_driver.pointAt(row("Screen Recordings"), QPointF(row("Screen Recordings").width() / 2, 8));
    take(QStringLiteral("explorer-selection"));

    m_driver.click(m_driver.item(QStringLiteral("reviewButton")));
    m_driver.pointAtNothing();
    take(QStringLiteral("review-sheet"));
    m_driver.click(m_driver.item(QStringLiteral("reviewSheet.deletePermanently")));
    m_driver.pointAtNothing();
    take(QStringLiteral("delete-confirm"));
    dismiss();
    dismiss();
}

void Photographer::takeRemoval()
{
    m_driver.click(m_driver.item(QStringLiteral("moveToTrashButton")));
    m_driver.pointAtNothing();
    m_driver.waitFor([&] { return m_store.toast().has_value(); }, QStringLiteral("the removal's message"));
    take(QStringLiteral("toast"));
    m_store.dismissToast();

    // A folder that no longer exists.
    m_store.scan(m_example.home + "/Old Projects");
    m_driver.waitFor([&] { return m_store.toast().has_value(); }, QStringLiteral("the refusal"));
    take(QStringLiteral("toast-warning"));
    m_store.dismissToast();
}

void Photographer::takeEmptyFolders()
{
    scan(m_example.home + "/Public");
    take(QStringLiteral("explorer-empty"));
    show(StorageStore::SidebarItem::overview);
    take(QStringLiteral("overview-empty"));
    show(StorageStore::SidebarItem::explorer);
    scan(m_example.closedFolder);
    take(QStringLiteral("explorer-unreadable"));
    takeNoDuplicates();
}

void Photographer::takeDrop()
{
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(QString::fromStdString(m_example.home + "/" + m_example.videos))});
    QDragEnterEvent enter(QPoint(width / 2, height / 2), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_driver.window(), &enter);
    take(QStringLiteral("drop"));
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_driver.window(), &leave);
}

void Photographer::takeOverviewBeforeScan()
{
    waitForMeasurement();
    refreshBreakdown();
    tabTo(m_driver.item(QStringLiteral("overview.scanHome")));
    take(QStringLiteral("overview-idle"));
    takeWelcome();
}

void Photographer::takeOverview()
{
    show(StorageStore::SidebarItem::overview);
    waitForMeasurement();
    refreshBreakdown();
    take(QStringLiteral("overview"));
    takeMinimum(QStringLiteral("overview-min"));
    tabTo(m_driver.item(QStringLiteral("overview.topFolders")));
    m_driver.press(Qt::Key_Down);
    take(QStringLiteral("overview-keyboard"));
    m_driver.resize(width, height);
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeCleanupWithoutScan()
{
    show(StorageStore::SidebarItem::cleanup);
    waitForMeasurement();
    m_driver.click(m_driver.item(QStringLiteral("cleanup.refresh")));
    waitForMeasurement();
    tabTo(m_driver.item(QStringLiteral("cleanupList")));
    m_driver.press(Qt::Key_End);
    m_driver.pointAtNothing();
    take(QStringLiteral("cleanup-noscan"));

    slowDownListings(std::chrono::milliseconds(40));
    m_store.finishCleanup({}, m_store.cleanupToken());
    m_driver.press(Qt::Key_Home);
    m_driver.click(m_driver.item(QStringLiteral("cleanup.refresh")));
    m_driver.pointAtNothing();
    takeMoving(QStringLiteral("cleanup-measuring"));
    slowDownListings(std::chrono::milliseconds(0));
    waitForMeasurement();
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeCleanup()
{
    show(StorageStore::SidebarItem::cleanup);
    waitForMeasurement();
    m_driver.click(cleanupRow(QStringLiteral("App Caches")));
    m_driver.rest();
    // First, because the selection bar, which appears with the first check, covers it.
    tickCleanup(m_example.cleanupRow);
    m_driver.rest();
    tickCleanup(QStringLiteral("Trash"));
    for (const QString &name : m_example.cachesTicked)
        tickCleanup(name);
    m_driver.pointAtNothing();
    take(QStringLiteral("cleanup"));
    if (!m_store.cleanupCommands().empty())
        takeCommands();
    takeMinimum(QStringLiteral("cleanup-min"));
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("cleanup-end"));
    m_store.clearSelection();

    std::vector<CleanupItem> nothing;
    const CleanupTable &table = cleanupTableOf(m_example.kind);
    const auto addEmpty = [&](const CleanupDefinition &def) {
        nothing.push_back({&def, {}, true});
        nothing.back().exists = !table.foldsEmptyRows;
    };
    std::ranges::for_each(CleanupCatalog::definitions, addEmpty);
    std::ranges::for_each(table.rows, addEmpty);
    m_store.finishCleanup(std::move(nothing), m_store.cleanupToken());
    m_driver.press(Qt::Key_Home);
    take(QStringLiteral("cleanup-empty"));
    show(StorageStore::SidebarItem::overview);
    take(QStringLiteral("overview-tidy"));
    show(StorageStore::SidebarItem::cleanup);
    scan(m_example.home + "/Public");
    waitForMeasurement();
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("cleanup-none"));
    show(StorageStore::SidebarItem::explorer);
}

void Photographer::takeCommands()
{
    QQuickItem &rows = m_driver.item(QStringLiteral("cleanupRows"));
    const auto scrollTo = [&](qreal end) {
        rows.setProperty("contentY", end);
        m_driver.rest();
    };
    // A list estimates the height of rows not created yet.
    for (int times = 0; times < 3; ++times) {
        scrollTo(rows.property("originY").toReal() + rows.property("contentHeight").toReal() +
                 rows.property("bottomMargin").toReal() - rows.height());
    }
    m_driver.click(m_driver.itemWhere(
        [](const QQuickItem &item) { return item.property("text").toString() == QStringLiteral("Copy"); },
        QStringLiteral("the button of a command")));
    m_driver.pointAtNothing();
    take(QStringLiteral("cleanup-commands"));
    scrollTo(rows.property("originY").toReal() - rows.property("topMargin").toReal());
}

QQuickItem &Photographer::cleanupRow(const QString &title) const
{
    return m_driver.itemWhere(
        [&](const QQuickItem &item) {
            return item.property("checkState").isValid() && item.property("title").toString() == title;
        },
        QStringLiteral("the row of %1").arg(title));
}

void Photographer::tickCleanup(const QString &title)
{
    m_driver.click(m_driver.itemWhere(
        [&](const QQuickItem &item) {
            return item.property("checkState").isValid() && item.property("accessibleName").toString() == title;
        },
        QStringLiteral("the check box of %1").arg(title)));
}

void Photographer::waitForMeasurement() const
{
    m_driver.waitFor([&] { return !m_store.cleanupLoading(); }, QStringLiteral("the catalogue's figures"));
}

void Photographer::scan(const std::string &path)
{
    m_store.scan(path);
    m_driver.waitFor([&] { return m_store.phase() == StorageStore::Phase::ready; }, QStringLiteral("the scan's end"));
}

void Photographer::dismiss()
{
    m_driver.press(Qt::Key_Escape);
    m_driver.rest();
}

void Photographer::takeWindow(const QString &name, const WindowDriver &driver)
{
    takeBoth(name, [&] { return driver.stillPicture(); });
}

void Photographer::takeBoth(const QString &name, const std::function<QImage()> &picture)
{
    for (const bool dark : {false, true}) {
        const QString whole = name + m_example.mark + (dark ? QStringLiteral("-dark") : QStringLiteral("-light"));
        const bool isWanted = m_wanted.isEmpty() || m_wanted.contains(whole);
        // Wait for idle even if the screenshot is not wanted: the next one depends on it.
        if (dark && !isWanted)
            continue;
        Theme::instance()->setDark(dark);
        const QImage taken = picture();
        if (isWanted)
            save(whole, taken);
    }
    Theme::instance()->setDark(false);
}

void Photographer::takeMinimum(const QString &name)
{
    m_driver.resize(Theme::instance()->property("minimumWidth").toInt(),
                    Theme::instance()->property("minimumHeight").toInt());
    take(name);
    m_driver.resize(width, height);
}

void Photographer::tabTo(const QQuickItem &item)
{
    for (int stops = 0; !item.hasActiveFocus(); ++stops) {
        if (stops == 20)
            giveUp(QStringLiteral("the Tab key does not lead to %1").arg(item.objectName()));
        m_driver.press(Qt::Key_Tab);
    }
}

void Photographer::show(StorageStore::SidebarItem screen)
{
    m_store.setSidebar(screen);
    m_driver.pointAtNothing();
}

void Photographer::takeMoving(const QString &name)
{
    takeBoth(name, [&] {
        QTest::qWait(300);
        return m_driver.picture();
    });
}

void Photographer::save(const QString &name, const QImage &picture) const
{
    // Quality 0 means maximum compression.
    if (!picture.save(m_folder.filePath(name + QStringLiteral(".png")), "PNG", 0))
        giveUp(QStringLiteral("cannot write %1").arg(m_folder.filePath(name)));
}

QQuickItem &Photographer::row(const std::string &name) const
{
    const QString text = QString::fromStdString(name);
    return m_driver.itemWhere(
        [&](const QQuickItem &item) {
            return item.property("checkState").isValid() && item.property("name").toString() == text;
        },
        QStringLiteral("the row of %1").arg(text));
}

void Photographer::tick(const std::string &name)
{
    QQuickItem &item = row(name);
    m_driver.clickAt(item, QPointF(22, item.height() / 2));
}

QPointF Photographer::tile(const std::string &name) const
{
    const QQuickItem &map = m_driver.item(QStringLiteral("map"));
    for (const TreemapTile &tile :
         TreemapBuilder::tiles(*m_store.currentFolder(), Rect{0, 0, map.width(), map.height()})) {
        if (tile.label == name)
            return {tile.rect.x + tile.rect.width / 2, tile.rect.y + 11};
    }
    giveUp(QStringLiteral("no tile of %1").arg(QString::fromStdString(name)));
}

} // namespace corvane
