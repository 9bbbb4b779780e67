#include "screenshots/photographer.h"

#include <chrono>

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QtTest/QTest>

#include "map/treemap_builder.h"
#include "screenshots/shaped_disk.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr int width = 1280;
constexpr int height = 800;

} // namespace

Photographer::Photographer(QQuickWindow &window, StorageStore &store, Services &services, const QDir &folder)
    : m_driver(window), m_store(store), m_services(services), m_folder(folder)
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
    m_driver.waitFor([&] { return m_store.scannedFiles() > 1'000; }, QStringLiteral("a scan under way"));
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
    m_driver.clickAt(m_driver.item(QStringLiteral("map")), tile("Movies"));
    m_driver.waitFor([&] { return m_store.currentFolder()->name == "Movies"; }, QStringLiteral("the opened folder"));
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

    // A folder that was there when it was chosen.
    m_store.scan("/Users/studio/Old Projects");
    m_driver.waitFor([&] { return m_store.toast().has_value(); }, QStringLiteral("the refusal"));
    take(QStringLiteral("toast-warning"));
    m_store.dismissToast();
}

void Photographer::takeEmptyFolders()
{
    scan("/Users/studio/Public");
    take(QStringLiteral("explorer-empty"));
    scan("/Users/studio/Library/Application Support/com.apple.TCC");
    take(QStringLiteral("explorer-unreadable"));
    takeNoDuplicates();
}

void Photographer::takeDrop()
{
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(QStringLiteral("/Users/studio/Movies"))});
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
    // First: the selection bar, which rises with the first tick, comes to lie over it.
    tickCleanup(QStringLiteral("Xcode DerivedData"));
    m_driver.rest();
    tickCleanup(QStringLiteral("Trash"));
    for (const char *name : {"Northwind Browser", "com.framewright.studio", "com.signaldeck.desktop"})
        tickCleanup(QString::fromLatin1(name));
    m_driver.pointAtNothing();
    take(QStringLiteral("cleanup"));
    takeMinimum(QStringLiteral("cleanup-min"));
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("cleanup-end"));
    m_store.clearSelection();

    std::vector<CleanupItem> nothing;
    for (const CleanupDefinition &def : CleanupCatalog::definitions)
        nothing.push_back({&def, {}, true});
    m_store.finishCleanup(std::move(nothing), m_store.cleanupToken());
    m_driver.press(Qt::Key_Home);
    take(QStringLiteral("cleanup-empty"));
    show(StorageStore::SidebarItem::overview);
    take(QStringLiteral("overview-tidy"));
    show(StorageStore::SidebarItem::cleanup);
    scan("/Users/studio/Public");
    waitForMeasurement();
    m_driver.press(Qt::Key_End);
    take(QStringLiteral("cleanup-none"));
    show(StorageStore::SidebarItem::explorer);
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
    for (const bool dark : {false, true}) {
        Theme::instance()->setDark(dark);
        save(name + (dark ? QStringLiteral("-dark") : QStringLiteral("-light")), driver.stillPicture());
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
    for (const bool dark : {false, true}) {
        Theme::instance()->setDark(dark);
        QTest::qWait(300);
        save(name + (dark ? QStringLiteral("-dark") : QStringLiteral("-light")), m_driver.picture());
    }
    Theme::instance()->setDark(false);
}

void Photographer::save(const QString &name, const QImage &picture) const
{
    // 0 asks for the smallest file.
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
