#include <functional>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "cleanup/cleanup_fixture.h"
#include "shell/fake_services.h"
#include "shell/screen_scene.h"
#include "support/patience.h"

namespace corvane {
namespace {

/// The whole screen in its own window, operated by mouse and keyboard.
class OverviewScreenTest : public test::CleanupFixture {
protected:
    OverviewScreenTest()
    {
        addFile("Movies/a.mov", 30'000'000);
        addFile("Music/b.flac", 20'000'000);
        addFile(".npm/_cacache/c", 4'000'000);
        addProject("harbor", 5'000'000);
        services.defaults.setDidOnboard(true);
    }

    void show(QSize size = {1064, 800})
    {
        scene = std::make_unique<ScreenScene>(
            "Overview/OverviewScreen", size,
            "Component { id: summary; Loader { source: \"qrc:/qt/qml/Corvane/Disk/BreakdownSummaryCard.qml\" } }\n"
            "onLoaded: item.breakdown = summary");
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
        ASSERT_NE(scene->item("overview.page"), nullptr);
    }
    void scanAndShow(QSize size = {1064, 800})
    {
        scanHome();
        store.setSidebar(StorageStore::SidebarItem::overview);
        show(size);
    }

    [[nodiscard]] QQuickItem *find(const std::function<bool(QQuickItem *)> &rule) const { return scene->find(rule); }
    [[nodiscard]] QQuickItem *named(const QString &name, QAccessible::Role role) const
    {
        return scene->named(name, role);
    }
    [[nodiscard]] QQuickItem *button(const QString &name) const { return named(name, QAccessible::Button); }
    [[nodiscard]] QQuickItem *link(const QString &name) const { return named(name, QAccessible::Link); }
    [[nodiscard]] QQuickItem *row(const QString &name) const { return named(name, QAccessible::ListItem); }
    [[nodiscard]] bool shows(const QString &text) const { return scene->shows(text); }
    [[nodiscard]] bool tabTo(const QQuickItem *item) const { return scene->tabTo(item); }

    FakeServices services;
    std::unique_ptr<ScreenScene> scene;
};

TEST_F(OverviewScreenTest, BeforeAScanItOffersTheScanCommands)
{
    measure();
    show();
    EXPECT_TRUE(shows(QStringLiteral("Nothing scanned yet")));
    EXPECT_TRUE(shows(QStringLiteral("Entire Disk")));
    EXPECT_TRUE(shows(QStringLiteral(
        "Choose what to scan. Nothing is changed or removed; Corvane only reads sizes, names and dates.")));
    EXPECT_TRUE(shows(QStringLiteral("4 MB of safe-to-clear junk")));
    EXPECT_FALSE(shows(QStringLiteral("Files over 100 MB")));
    scene->click(button(QStringLiteral("Home Folder")));
    EXPECT_NE(store.phase(), StorageStore::Phase::idle) << "a small scan may be over already";
    EXPECT_EQ(store.lastScanPath(), home);
}

TEST_F(OverviewScreenTest, TheOtherWaysScanTheDiskAndAskForAFolder)
{
    show();
    const QSignalSpy wanted(&store, &StorageStore::folderWanted);
    scene->click(button(QStringLiteral("Choose Folder…")));
    EXPECT_EQ(wanted.count(), 1);
    scene->click(button(QStringLiteral("Entire Disk")));
    EXPECT_EQ(store.lastScanPath(), "/");
}

TEST_F(OverviewScreenTest, AfterAScanItSaysWhatWasFound)
{
    scanAndShow();
    EXPECT_TRUE(shows(QStringLiteral("811.29 GB")));
    EXPECT_TRUE(shows(QStringLiteral("Used")));
    EXPECT_TRUE(shows(QStringLiteral("Total")));
    EXPECT_TRUE(shows(QStringLiteral("available")));
    EXPECT_TRUE(shows(QStringLiteral("Files over 100 MB")));
    EXPECT_TRUE(shows(QStringLiteral("Project junk")));
    EXPECT_TRUE(shows(QStringLiteral("File types")));
    EXPECT_TRUE(shows(QStringLiteral("Biggest items in studio")));
    EXPECT_TRUE(shows(QStringLiteral("Quick wins")));
    EXPECT_TRUE(shows(QStringLiteral("Where's my space?")));
    EXPECT_NE(row(QStringLiteral("Movies, 30 MB")), nullptr);
    EXPECT_EQ(button(QStringLiteral("Home Folder")), nullptr);
    EXPECT_EQ(link(QStringLiteral("npm Cache, 4 MB, 1 item"))->height(), 56) << "in a column of its own";
}

TEST_F(OverviewScreenTest, AStoppedScanIsMarkedAndCanBeRepeated)
{
    store.scan(at("Movies"));
    store.stopScan();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    store.dismissToast();
    show();
    EXPECT_TRUE(shows(QStringLiteral("Partial: the scan was stopped")));
    scene->click(button(QStringLiteral("Scan Again")));
    EXPECT_EQ(store.lastScanPath(), at("Movies"));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return store.phase() == StorageStore::Phase::ready && !store.breakdownLoading(); }, patience));
    EXPECT_FALSE(shows(QStringLiteral("Partial: the scan was stopped")));
    EXPECT_EQ(button(QStringLiteral("Scan Again")), nullptr);
}

TEST_F(OverviewScreenTest, WithoutQuickWinsTheCardSaysSoInItsMiddle)
{
    fake.files.take(at(".npm"));
    scanAndShow();
    QQuickItem *const words =
        find([](QQuickItem *item) { return item->property("text") == QStringLiteral("Your caches look tidy. Nice!"); });
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
    EXPECT_FALSE(shows(QStringLiteral("Rebuilt or downloaded again when an app needs it.")));
    EXPECT_NE(button(QStringLiteral("Open Cleanup")), nullptr);
}

TEST_F(OverviewScreenTest, WithoutRoomForThreeTheQuickWinsStandBelow)
{
    scanAndShow({824, 600});
    EXPECT_EQ(link(QStringLiteral("npm Cache, 4 MB, 1 item"))->height(), 46);
    QQuickItem *const page = scene->item("overview.page");
    EXPECT_GT(page->property("contentHeight").toReal(), page->height()) << "the page scrolls";
}

TEST_F(OverviewScreenTest, FiguresLeadWhereTheyAreExplained)
{
    scanAndShow();
    scene->click(row(QStringLiteral("Music, 20 MB")));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder()->name, "Music");
    scene->click(button(QStringLiteral("See all")));
    EXPECT_EQ(store.currentFolder(), store.root());

    scene->click(button(QStringLiteral("Project junk: 5 MB")));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
    store.setSidebar(StorageStore::SidebarItem::overview);
    scene->click(link(QStringLiteral("npm Cache, 4 MB, 1 item")));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
    store.setSidebar(StorageStore::SidebarItem::overview);
    scene->click(button(QStringLiteral("Open Cleanup")));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
    scene->click(button(QStringLiteral("See Breakdown")));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::breakdown);
}

TEST_F(OverviewScreenTest, TheKeyboardReachesEveryCommand)
{
    scanAndShow();
    QQuickItem *const list = scene->item("overview.topFolders");
    ASSERT_TRUE(tabTo(list));
    scene->key(Qt::Key_Down);
    EXPECT_TRUE(row(QStringLiteral("Music, 20 MB"))->property("ringed").toBool());
    scene->key(Qt::Key_Return);
    EXPECT_EQ(store.currentFolder()->name, "Music");

    ASSERT_TRUE(tabTo(button(QStringLiteral("Open Cleanup"))));
    scene->key(Qt::Key_Return);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
    store.setSidebar(StorageStore::SidebarItem::overview);
    ASSERT_TRUE(tabTo(button(QStringLiteral("Project junk: 5 MB"))));
    scene->key(Qt::Key_Space);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup);
}

TEST_F(OverviewScreenTest, TheMenuKeyOpensTheMenuOfAnItem)
{
    scanAndShow();
    ASSERT_TRUE(tabTo(scene->item("overview.topFolders")));
    scene->key(Qt::Key_Menu);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("overviewMenu"); }, patience));
}

TEST_F(OverviewScreenTest, TheKeyboardStartsAScan)
{
    show();
    ASSERT_TRUE(tabTo(button(QStringLiteral("Home Folder"))));
    scene->key(Qt::Key_Space);
    EXPECT_NE(store.phase(), StorageStore::Phase::idle) << "a small scan may be over already";
}

TEST_F(OverviewScreenTest, WithoutAccessABannerExplainsAndLeadsToTheSettings)
{
    addFile("Library/x", 5'000);
    fake.files.setSystemKind(SystemKind::mac); // whose probe file cannot be opened
    scanAndShow();
    EXPECT_TRUE(shows(QStringLiteral("Give Corvane Full Disk Access for complete results")));
    EXPECT_TRUE(shows(QStringLiteral(
        "Without it, macOS hides Mail, Safari, Trash and some app data — and may ask for permission folder by folder. "
        "Add Corvane in System Settings › Privacy & Security › Full Disk Access, then relaunch.")));
    const auto settingsOpened = [&] {
        return std::ranges::count(fake.log->lines(),
                                  "openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles");
    };
    scene->click(button(QStringLiteral("Open Settings")));
    EXPECT_EQ(settingsOpened(), 1);

    scene->click(button(QStringLiteral("Show Me How")));
    EXPECT_FALSE(services.defaults.didOnboard()) << "the window opens the welcome sheet";
}

TEST_F(OverviewScreenTest, AReaderHearsWhatTheBannerAndTheCardsSay)
{
    addFile("Library/x", 5'000);
    fake.files.setSystemKind(SystemKind::mac); // whose probe file cannot be opened
    scanAndShow();
    const auto hears = [this](const QString &text) { return named(text, QAccessible::StaticText) != nullptr; };
    EXPECT_TRUE(hears(QStringLiteral(
        "Without it, macOS hides Mail, Safari, Trash and some app data — and may ask for permission folder by folder. "
        "Add Corvane in System Settings › Privacy & Security › Full Disk Access, then relaunch.")));
    EXPECT_TRUE(hears(QStringLiteral("4 MB of safe-to-clear junk")));
}

TEST_F(OverviewScreenTest, WithAccessThereIsNoBanner)
{
    fake.files.setSystemKind(SystemKind::linuxSystem); // on which every program may read the home folder
    scanAndShow();
    EXPECT_EQ(button(QStringLiteral("Show Me How")), nullptr);
}

TEST_F(OverviewScreenTest, OfLargeListsOnlyTheFirstFewAreMade)
{
    for (int i = 0; i < 5'000; ++i) {
        addFile("f" + std::to_string(i) + ".mov", 1'000'000 + i);
        addProject("p" + std::to_string(i), 1'000'000 + i * 4'096);
    }
    addCaches(10'000);
    scanAndShow();
    int made = 0;
    static_cast<void>(find([&](QQuickItem *) {
        ++made;
        return false;
    }));
    EXPECT_GT(made, 100);
    EXPECT_LT(made, 1'000);
}

} // namespace
} // namespace corvane
