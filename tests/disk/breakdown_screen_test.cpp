#include <memory>

#include <gmock/gmock.h>

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "disk/sample_breakdown.h"
#include "shell/screen_scene.h"
#include "shell/store_with_films.h"
#include "shell/ui/stacked_bar.h"
#include "shell/ui/theme.h"
#include "shell/without_motion.h"
#include "support/patience.h"

namespace corvane {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// The whole screen in its own window, operated by mouse and keyboard.
class BreakdownScreenTest : public testing::Test, protected StoreWithFilms, WithoutMotion {
protected:
    BreakdownScreenTest()
    {
        fake.files.setSystemKind(SystemKind::mac);
        // A folder at which a test can block the measurement.
        fake.files.addFile("/Applications/Harbor.app", 60'000'000);
    }

    void show(const DiskBreakdown &disk, QSize size = {1064, 800})
    {
        store.finishBreakdown(disk, store.breakdownToken());
        showFile("BreakdownScreen", size);
    }
    void showFile(const char *file, QSize size)
    {
        scene = std::make_unique<ScreenScene>(QByteArray("Disk/") + file, size);
        ASSERT_TRUE(scene->isShown()) << scene->errors().toStdString();
    }
    void pointAtNothing()
    {
        QTest::mouseMove(scene->window(), QPoint(1, 1));
        QTest::qWait(1);
    }

    /// All accessible names, in screen order.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        scene->visit([&](QQuickItem &item) {
            if (const QString name = QuickScene::accessibleName(&item); !name.isEmpty())
                all.push_back(name.toStdString());
        });
        return all;
    }
    [[nodiscard]] std::vector<QQuickItem *> rows() const
    {
        std::vector<QQuickItem *> all;
        scene->visit([&](QQuickItem &item) {
            if (item.property("segmentId").isValid())
                all.push_back(&item);
        });
        return all;
    }
    /// The ids of the highlighted rows.
    [[nodiscard]] std::vector<std::string> litRows() const
    {
        std::vector<std::string> ids;
        for (const QQuickItem *row : rows()) {
            if (row->property("highlighted").toBool())
                ids.push_back(row->property("segmentId").toString().toStdString());
        }
        return ids;
    }
    [[nodiscard]] StackedBar &bar() const
    {
        return *scene->window()->findChild<StackedBar *>(QStringLiteral("breakdown.bar"));
    }
    /// The item with this objectName; null if it is hidden or transparent.
    [[nodiscard]] QQuickItem *visibleItem(const char *name) const
    {
        QQuickItem *found = nullptr;
        scene->visit([&](QQuickItem &item) {
            if (item.objectName() == QLatin1String(name))
                found = &item;
        });
        return found;
    }
    [[nodiscard]] qreal top() const { return scene->item("breakdown.page")->property("contentY").toReal(); }
    void pointAtPart(int part)
    {
        const BarPart &place = bar().layout()[static_cast<std::size_t>(part)];
        QTest::mouseMove(scene->window(), bar().mapToScene(QPointF(place.x + place.width / 2, 10)).toPoint());
        QTest::qWait(1);
    }
    [[nodiscard]] bool tabTo(const char *name) { return scene->tabTo(visibleItem(name)); }

    std::unique_ptr<ScreenScene> scene;
};

TEST_F(BreakdownScreenTest, SaysWhatItShows)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(names(), Contains("Where's My Space"));
    EXPECT_THAT(names(),
                Contains("Every byte on your disk, accounted for — including what Finder calls “System Data”"));
    EXPECT_THAT(names(), AllOf(Contains("95% explained"), Contains("811.29 GB used of 994.66 GB"),
                               Contains("183.37 GB free on Macintosh HD"), Contains("and 2 smaller")));
}

TEST_F(BreakdownScreenTest, BeforeThereIsABreakdownItSaysThatItMeasures)
{
    Gate gate = blockFolders();
    showFile("BreakdownScreen", {1064, 800});

    EXPECT_NE(visibleItem("breakdown.loading"), nullptr);
    EXPECT_THAT(names(), Contains("Measuring your disk…"));
    EXPECT_EQ(visibleItem("breakdown.page"), nullptr);
    EXPECT_NE(visibleItem("breakdown.progress"), nullptr);

    gate.open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return visibleItem("breakdown.page") != nullptr; }, patience));
    EXPECT_EQ(visibleItem("breakdown.loading"), nullptr);
}

TEST_F(BreakdownScreenTest, RefreshGivesItsPlaceToTheProgressAndComesBack)
{
    show(test::sampleBreakdown());
    QQuickItem *const button = visibleItem("breakdown.refresh");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(visibleItem("breakdown.progress"), nullptr);
    Gate gate = blockFolders();

    scene->click(button);

    EXPECT_TRUE(store.breakdownLoading());
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(visibleItem("breakdown.refresh"), nullptr);
    EXPECT_NE(visibleItem("breakdown.progress"), nullptr);
    EXPECT_THAT(names(), Contains("95% explained")) << "the old one stays";
    gate.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.breakdownLoading(); }, patience));
    EXPECT_TRUE(button->isEnabled());
    EXPECT_NE(visibleItem("breakdown.refresh"), nullptr);
}

TEST_F(BreakdownScreenTest, EverySegmentHasItsRow)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(names(), AllOf(Contains("Your Home Folder, 642.43 GB, 79%"), Contains("Applications, 73.8 GB, 9%"),
                               Contains("Swap & Sleep Image, 4.29 GB, 1%"), Contains("Library 174 GB"),
                               Contains("Xcode.app 12.84 GB"), Contains("Open Space Map"), Contains("Show in Finder"),
                               Contains("Grant Full Disk Access")));
    EXPECT_EQ(rows().size(), 7U);
    EXPECT_EQ(std::ranges::count(names(), "Unexplained"), 1);
}

TEST_F(BreakdownScreenTest, APartUnderThePointerHighlightsItsRowAndShowsItsSize)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(litRows(), ElementsAre());

    pointAtPart(1);

    EXPECT_THAT(litRows(), ElementsAre("/Applications"));
    QQuickItem *const told = visibleItem("breakdown.current");
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->childItems()[1]->property("text").toString(), QStringLiteral("Applications"));
    EXPECT_EQ(told->childItems()[2]->property("text").toString(), QStringLiteral("73.8 GB · 9%"));

    pointAtPart(7);
    EXPECT_THAT(litRows(), ElementsAre());
    EXPECT_EQ(told->childItems()[1]->property("text").toString(), QStringLiteral("Free"));
    pointAtNothing();
    EXPECT_EQ(visibleItem("breakdown.current"), nullptr);
}

TEST_F(BreakdownScreenTest, ARowUnderThePointerHighlightsItsPart)
{
    show(test::sampleBreakdown());
    scene->hover(rows()[3]);
    QTest::qWait(1);
    EXPECT_EQ(bar().current(), QStringLiteral("/Library"));
    EXPECT_THAT(litRows(), ElementsAre("/Library"));

    for (const std::size_t row : {4U, 3U}) {
        scene->hover(rows()[row]);
        QTest::qWait(1);
        EXPECT_THAT(litRows(), ElementsAre(rows()[row]->property("segmentId").toString().toStdString()));
    }
    pointAtNothing();
    EXPECT_EQ(bar().current(), QString());
}

TEST_F(BreakdownScreenTest, ArrowsOnTheBarHighlightTheRows)
{
    show(test::sampleBreakdown());
    ASSERT_TRUE(tabTo("breakdown.bar"));
    scene->key(Qt::Key_Right);
    scene->key(Qt::Key_Right);
    EXPECT_THAT(litRows(), ElementsAre("/Applications"));
    QAccessibleInterface *const read = QuickScene::accessible(&bar());
    EXPECT_EQ(read->text(QAccessible::Description), QStringLiteral("Applications, 73.8 GB · 9%"));

    scene->key(Qt::Key_Tab);
    EXPECT_THAT(litRows(), ElementsAre());
}

TEST_F(BreakdownScreenTest, ReturnOnAPartBringsItsRowIntoSight)
{
    show(test::sampleBreakdown(), {824, 400});
    ASSERT_TRUE(tabTo("breakdown.bar"));
    scene->key(Qt::Key_End);
    scene->key(Qt::Key_Return);
    EXPECT_EQ(top(), 0) << "the free space has no row";
    scene->key(Qt::Key_Left);
    scene->key(Qt::Key_Return);
    EXPECT_GT(top(), 0);
    const QQuickItem *last = rows().back();
    EXPECT_LE(last->mapToScene(QPointF(0, last->height())).y(), 400);
}

TEST_F(BreakdownScreenTest, TabBringsTheActionsIntoSight)
{
    show(test::sampleBreakdown(), {824, 400});
    ASSERT_TRUE(tabTo("breakdown.action./Library"));
    const QQuickItem *button = visibleItem("breakdown.action./Library");
    EXPECT_GT(top(), 0);
    EXPECT_GE(button->mapToScene(QPointF()).y(), 56);
    EXPECT_LE(button->mapToScene(QPointF(0, button->height())).y(), 400);
}

TEST_F(BreakdownScreenTest, TheNudgeIsShownOnlyWithoutAScan)
{
    show(test::unscannedBreakdown());
    ASSERT_NE(visibleItem("breakdown.nudge"), nullptr);
    EXPECT_THAT(names(),
                AllOf(Contains("Scan your home folder to explain the rest"),
                      Contains("Right now Corvane only knows the volume sizes. A scan turns “Not Scanned Yet” into "
                               "folders you can explore and clean."),
                      Contains("Not Scanned Yet, 680.55 GB, 84%")));
    EXPECT_EQ(std::ranges::count(names(), "Scan Home Folder"), 2) << "the nudge's and the row's";

    store.finishBreakdown(test::sampleBreakdown(), store.breakdownToken());
    EXPECT_EQ(visibleItem("breakdown.nudge"), nullptr);
    EXPECT_THAT(names(), Not(Contains("Scan Home Folder")));
}

TEST_F(BreakdownScreenTest, WhileAScanRunsNoneCanBeStarted)
{
    show(test::unscannedBreakdown());
    Gate gate = blockFolders();
    scene->click(visibleItem("breakdown.nudge"));
    ASSERT_EQ(store.phase(), StorageStore::Phase::scanning);
    EXPECT_FALSE(visibleItem("breakdown.nudge")->isEnabled());
    EXPECT_FALSE(visibleItem("breakdown.action.hidden")->isEnabled());
    EXPECT_TRUE(visibleItem("breakdown.action./Library")->isEnabled());
}

TEST_F(BreakdownScreenTest, ActionsAreCarriedOutByClickAndByKey)
{
    show(test::sampleBreakdown());
    scene->click(visibleItem("breakdown.action./Applications"));
    EXPECT_THAT(fake.log->lines(), Contains("reveal /Applications"));
    ASSERT_TRUE(tabTo("breakdown.action./Library"));
    scene->key(Qt::Key_Return);
    EXPECT_THAT(fake.log->lines(), Contains("reveal /Library"));
}

TEST_F(BreakdownScreenTest, TheSnapshotsCardIsThereOnlyWithSnapshots)
{
    DiskBreakdown disk = test::sampleBreakdown();
    show(disk);
    EXPECT_EQ(visibleItem("snapshots.copyList"), nullptr);
    EXPECT_THAT(names(), Not(Contains("Local Time Machine Snapshots")));

    for (int i = 0; i < 9; ++i)
        disk.snapshots.push_back(test::snapshotAt(i));
    store.finishBreakdown(disk, store.breakdownToken());
    EXPECT_THAT(names(),
                AllOf(Contains("Local Time Machine Snapshots"), Contains("9 found"), Contains("+ 3 more"),
                      Contains("macOS keeps these hourly copies when Time Machine is on and deletes them by itself "
                               "when space runs low, so they're usually nothing to worry about. If you need the space "
                               "right now, you can thin them yourself in Terminal."),
                      Contains("Copy “list snapshots” command"), Contains("Copy “free snapshots” command"),
                      Contains("The second command asks for your Mac password. Corvane never runs it for you.")));
}

TEST_F(BreakdownScreenTest, ACopyButtonSaysCopiedAndKeepsItsWidth)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.snapshots.push_back(test::snapshotAt(0));
    show(disk, {1064, 1200});
    QQuickItem *const button = visibleItem("snapshots.copyThin");
    ASSERT_NE(button, nullptr);
    const qreal width = button->width();

    scene->click(button);

    EXPECT_EQ(button->property("text").toString(), QStringLiteral("Copied!"));
    EXPECT_EQ(button->property("symbol").toString(), QStringLiteral("checkmark"));
    EXPECT_EQ(visibleItem("snapshots.copyList")->property("text").toString(),
              QStringLiteral("Copy “list snapshots” command"));
    EXPECT_EQ(button->width(), width);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return button->property("text").toString() == QStringLiteral("Copy “free snapshots” command"); },
        patience));
    EXPECT_EQ(button->property("symbol").toString(), QStringLiteral("doc.on.clipboard"));
}

TEST_F(BreakdownScreenTest, ASnapshotsOwnCommandReplacesTheGeneralOne)
{
    fake.files.setSystemKind(SystemKind::linuxSystem);
    DiskBreakdown disk = test::sampleBreakdown();
    disk.system = SystemKind::linuxSystem;
    disk.snapshots = {{.name = "snapper root 3",
                       .date = {},
                       .listCommand = "sudo snapper list",
                       .deleteCommand = "sudo snapper -c root delete 3"}};
    show(disk, {1064, 1200});
    EXPECT_EQ(visibleItem("snapshots.copyThin"), nullptr);
    ASSERT_NE(visibleItem("snapshots.copyList"), nullptr);
    EXPECT_THAT(names(), AllOf(Contains("Snapshots"), Contains("snapper root 3")));
    ASSERT_TRUE(tabTo("snapshots.copyDelete"));
    scene->key(Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("sudo snapper -c root delete 3"));
    EXPECT_EQ(visibleItem("snapshots.copyDelete")->property("text").toString(), QStringLiteral("Copied!"));
}

TEST_F(BreakdownScreenTest, AMacsSnapshotsHaveNoCommandsOfTheirOwn)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.snapshots = {test::snapshotAt(0)};
    show(disk, {1064, 1200});
    EXPECT_EQ(visibleItem("snapshots.copyDelete"), nullptr);
    EXPECT_NE(visibleItem("snapshots.copyThin"), nullptr);
}

TEST_F(BreakdownScreenTest, NothingIsCutOffInTheSmallestWindow)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.fromAPFS = false;
    disk.overcount = 5;
    disk.segments[2].detail = "Files macOS doesn't let apps measure: system caches and logs in /private/var, other "
                              "users' folders, the Spotlight index and snapshot data. Corvane couldn't open 14 folders "
                              "during the scan.";
    disk.segments[0].children = {{"Library", 174'000'000'000},
                                 {"Movies", 156'820'000'000},
                                 {"Pictures", 94'920'000'000},
                                 {"Projects", 73'980'000'000},
                                 {"Virtual Machines", 44'320'000'000}};
    disk.snapshots.push_back({"com.apple.TimeMachine.unreadable", {}});
    show(disk, {1040 - 216, 660});

    scene->visit([&](QQuickItem &item) {
        if (!item.property("truncated").isValid() || item.property("text").toString().isEmpty())
            return;
        EXPECT_FALSE(item.property("truncated").toBool()) << item.property("text").toString().toStdString();
        EXPECT_LE(item.mapToScene(QPointF(item.width(), 0)).x(), 1040 - 216 - 24)
            << item.property("text").toString().toStdString();
    });
    for (QQuickItem *row : rows()) {
        const QRectF inside(QPointF(), row->size());
        EXPECT_TRUE(inside.contains(row->childrenRect())) << row->property("title").toString().toStdString();
    }
}

TEST_F(BreakdownScreenTest, TheSummaryShowsTheExplainedShareAndOpensTheScreen)
{
    store.finishBreakdown(test::sampleBreakdown(), store.breakdownToken());
    showFile("BreakdownSummaryCard", {900, 44});
    EXPECT_THAT(names(), AllOf(Contains("Where's my space?"), Contains("95% of 811.29 GB explained")));
    EXPECT_EQ(scene->window()->findChild<StackedBar *>(QStringLiteral("summary.bar"))->parts().size(), 7);

    scene->click(visibleItem("summary.seeBreakdown"));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::breakdown);
}

TEST_F(BreakdownScreenTest, TheSummaryWaitsForABreakdown)
{
    Gate gate = blockFolders();
    showFile("BreakdownSummaryCard", {900, 44});
    EXPECT_THAT(names(), AllOf(Contains("Where's my space?"), Contains("Measuring your disk…")));
    EXPECT_TRUE(store.breakdownLoading());
}

TEST_F(BreakdownScreenTest, FiguresOfAStoppedScanAreMarkedAndANewScanIsOffered)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(names(), Not(Contains("Partial: the scan was stopped")));

    DiskBreakdown disk = test::sampleBreakdown();
    disk.scanIsPartial = true;
    show(disk);
    EXPECT_THAT(names(), Contains("Partial: the scan was stopped"));
    scene->click(visibleItem("breakdown.scanAgain"));
    EXPECT_EQ(store.lastScanPath(), "/home/studio") << "nothing else was scanned before";
}

TEST_F(BreakdownScreenTest, TheSummaryOfAStoppedScanIsMarked)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.scanIsPartial = true;
    store.finishBreakdown(disk, store.breakdownToken());
    showFile("BreakdownSummaryCard", {772, 44});
    EXPECT_THAT(names(), AllOf(Contains("95% of 811.29 GB explained"), Contains("Partial: the scan was stopped")));
    const QQuickItem *const words = visibleItem("summary.text");
    EXPECT_GE(words->width(), words->implicitWidth()) << "both are read whole in the smallest window";
}

} // namespace
} // namespace corvane
