#include <QClipboard>
#include <QGuiApplication>

#include "disk/sample_breakdown.h"
#include "journeys/journey.h"
#include "shell/ui/stacked_bar.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Item = StorageStore::SidebarItem;

/// A home of 9 MiB: Movies 6, Games 2, and a file of 1.
class BreakdownJourney : public Journey {
protected:
    BreakdownJourney()
    {
        addFile("Movies/film.mkv", 6);
        addFile("Games/world.dat", 2);
        addFile("archive.zip", 1);
    }

    void waitForBreakdown()
    {
        waitUntil([&] { return store().breakdown() && !store().breakdownLoading(); },
                  QStringLiteral("the disk to be measured"));
        waitUntil([&] { return isShown(QStringLiteral("breakdown.page")); }, QStringLiteral("the breakdown"));
        driver().rest();
    }
    void openBreakdown()
    {
        open();
        clickText(QStringLiteral("Where's My Space"));
        waitForBreakdown();
        driver().pointAtNothing();
    }
    void openScannedBreakdown()
    {
        openAndScan();
        clickText(QStringLiteral("Where's My Space"));
        waitForBreakdown();
        driver().pointAtNothing();
    }
    /// Opens the window with a Mac's disk instead of this machine's.
    void openOnAMac(const DiskBreakdown &disk)
    {
        openBreakdown();
        store().finishBreakdown(disk, store().breakdownToken());
        driver().rest();
    }
    /// The segment's row; null if there is none.
    QQuickItem *findRow(const std::string &id)
    {
        return driver().find([&](const QQuickItem &item) {
            return item.property("segmentId").toString() == QString::fromStdString(id);
        });
    }
    std::string sizeInRow(const std::string &id)
    {
        const QQuickItem *const row = findRow(id);
        return row == nullptr ? std::string() : row->property("sizeText").toString().toStdString();
    }
    std::vector<std::string> litRows()
    {
        std::vector<std::string> ids;
        for (const BreakdownSegment &segment : store().breakdown()->segments) {
            const QQuickItem *const row = findRow(segment.id);
            if (row != nullptr && row->property("highlighted").toBool())
                ids.push_back(segment.id);
        }
        return ids;
    }
    StackedBar &bar() { return *qobject_cast<StackedBar *>(&driver().item(QStringLiteral("breakdown.bar"))); }
    void pointAtPart(std::size_t part)
    {
        const BarPart &place = bar().layout().at(part);
        driver().pointAt(bar(), QPointF(place.x + place.width / 2, bar().height() / 2));
    }
    /// Triggers the segment's action by keyboard.
    void press(const std::string &id)
    {
        tabTo(driver().item(QStringLiteral("breakdown.action.") + QString::fromStdString(id)));
        Journey::press(Qt::Key_Return);
    }
    using Journey::press;

    DiskBreakdown macWithSnapshots(int count)
    {
        DiskBreakdown disk = test::sampleBreakdown();
        for (int i = 0; i < count; ++i)
            disk.snapshots.push_back(test::snapshotAt(i));
        return disk;
    }
};

TEST_F(BreakdownJourney, TheDiskIsMeasuredBeforeAnyScan)
{
    openBreakdown();

    EXPECT_TRUE(shows(QStringLiteral("explained")));
    EXPECT_TRUE(shows(QStringLiteral("Scan your home folder to explore it")));
    EXPECT_FALSE(store().breakdown()->hasScan);
    EXPECT_EQ(store().phase(), StorageStore::Phase::idle);
}

TEST_F(BreakdownJourney, TheNudgeScansTheHomeAndTheHomeGetsItsRow)
{
    openBreakdown();
    EXPECT_EQ(findRow("scanned"), nullptr);

    click(QStringLiteral("breakdown.nudge"));
    waitUntil([&] { return isScanned() && store().breakdown()->hasScan; }, QStringLiteral("the scan's breakdown"));
    waitForBreakdown();

    EXPECT_EQ(sizeInRow("scanned"), "9.4 MB");
    EXPECT_TRUE(shows(QStringLiteral("Your Home Folder")));
    EXPECT_TRUE(shows(QStringLiteral("Movies")));
    EXPECT_FALSE(shows(QStringLiteral("Scan your home folder to explore it")));
    EXPECT_EQ(store().sidebar(), Item::breakdown);
}

TEST_F(BreakdownJourney, RefreshMeasuresTheDiskAgain)
{
    openScannedBreakdown();
    const int token = store().breakdownToken();

    click(QStringLiteral("breakdown.refresh"));
    waitForBreakdown();

    EXPECT_EQ(store().breakdownToken(), token + 1);
    EXPECT_EQ(sizeInRow("scanned"), "9.4 MB");
    EXPECT_TRUE(isShown(QStringLiteral("breakdown.refresh")));
}

TEST_F(BreakdownJourney, RefreshByTheKeyboardKeepsTheKeyboardThere)
{
    openScannedBreakdown();
    const int token = store().breakdownToken();
    tabTo(driver().item(QStringLiteral("breakdown.refresh")));

    press(Qt::Key_Return);
    waitUntil([&] { return store().breakdownToken() == token + 1; }, QStringLiteral("the measuring"));
    waitForBreakdown();

    EXPECT_TRUE(driver().item(QStringLiteral("breakdown.refresh")).hasActiveFocus());
}

TEST_F(BreakdownJourney, ARemovalMakesTheScannedPartSmaller)
{
    openAndScan();
    ASSERT_THAT(rows(), ElementsAre("Movies 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    click(QStringLiteral("moveToTrashButton"));
    waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));

    clickText(QStringLiteral("Where's My Space"));
    waitForBreakdown();

    EXPECT_EQ(sizeInRow("scanned"), "7.3 MB");
    EXPECT_TRUE(shows(QStringLiteral("Movies")));
    EXPECT_FALSE(shows(QStringLiteral("Games")));
}

TEST_F(BreakdownJourney, PointingAtAPartLightsItsRow)
{
    openOnAMac(test::sampleBreakdown());

    pointAtPart(1);
    EXPECT_THAT(litRows(), ElementsAre("/Applications"));
    EXPECT_TRUE(shows(QStringLiteral("73.8 GB · 9%")));

    pointAtPart(6); // the narrowest
    EXPECT_THAT(litRows(), ElementsAre("vm"));

    driver().pointAtNothing();
    EXPECT_THAT(litRows(), IsEmpty());
    EXPECT_FALSE(shows(QStringLiteral("73.8 GB · 9%")));
}

TEST_F(BreakdownJourney, ArrowsOnTheBarLightTheRowsAndReturnBringsOneIntoSight)
{
    openOnAMac(test::sampleBreakdown());
    driver().resize(1040, 660);
    tabTo(bar());

    press(Qt::Key_Right);
    EXPECT_THAT(litRows(), ElementsAre("scanned"));
    press(Qt::Key_End);
    EXPECT_THAT(litRows(), IsEmpty());
    EXPECT_TRUE(shows(QStringLiteral("183.37 GB")));
    press(Qt::Key_Left);
    EXPECT_THAT(litRows(), ElementsAre("vm"));
    press(Qt::Key_Return);

    QQuickItem &row = *findRow("vm");
    EXPECT_LE(row.mapToScene(QPointF(0, row.height())).y(), 660);
    EXPECT_GE(row.mapToScene(QPointF()).y(), 56);
}

TEST_F(BreakdownJourney, TypingOnTheBarLightsThePartOfThatName)
{
    openOnAMac(test::sampleBreakdown());
    tabTo(bar());

    press(Qt::Key_A);

    EXPECT_THAT(litRows(), ElementsAre("/Applications"));
}

TEST_F(BreakdownJourney, OpenSpaceMapShowsTheMapOfTheScan)
{
    openScannedBreakdown();

    press("scanned");

    waitUntil([&] { return isShown(QStringLiteral("contents")); }, QStringLiteral("the Space Map"));
    EXPECT_EQ(store().sidebar(), Item::explorer);
    EXPECT_THAT(rows(), ElementsAre("Movies 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
}

TEST_F(BreakdownJourney, ShowInFinderOpensTheFileManagerAtTheFolder)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.segments[1].action->path = at("Movies");
    openOnAMac(disk);

    click(QStringLiteral("breakdown.action./Applications"));

    waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the file manager"));
    EXPECT_THAT(Sandbox::instance().opened(), ElementsAre(home()));
    EXPECT_EQ(toast(), "");
}

TEST_F(BreakdownJourney, ScanHomeFolderInTheRowStartsTheScan)
{
    openOnAMac(test::unscannedBreakdown());

    press("hidden");

    waitUntil([&] { return isScanned(); }, QStringLiteral("the scan"));
    EXPECT_EQ(store().lastScanPath(), home());
}

TEST_F(BreakdownJourney, GrantFullDiskAccessOpensTheSystemsSettings)
{
    openOnAMac(test::sampleBreakdown());

    press("hidden");

    waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the settings"));
    EXPECT_THAT(Sandbox::instance().opened(),
                ElementsAre("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
}

TEST_F(BreakdownJourney, TheCopyButtonsCopyTheirCommandsAndSaySoForAWhile)
{
    DiskBreakdown disk = macWithSnapshots(9);
    for (std::size_t i = 0; i < disk.snapshots.size(); ++i) {
        disk.snapshots[i].listCommand = "sudo snapper list --all-configs";
        disk.snapshots[i].deleteCommand = "sudo snapper -c root delete " + std::to_string(i + 1);
    }
    openOnAMac(disk);
    EXPECT_TRUE(shows(QStringLiteral("9 found")));
    EXPECT_TRUE(shows(QStringLiteral("+ 3 more")));
    EXPECT_FALSE(isShown(QStringLiteral("snapshots.copyThin")));
    QQuickItem &list = driver().item(QStringLiteral("snapshots.copyList"));
    QQuickItem &removal = driver().item(QStringLiteral("snapshots.copyDelete"));

    tabTo(list);
    press(Qt::Key_Space);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("sudo snapper list --all-configs"));
    EXPECT_EQ(list.property("text").toString(), QStringLiteral("Copied!"));

    driver().click(removal);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("sudo snapper -c root delete ")));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), removal.property("command").toString());
    EXPECT_EQ(removal.property("text").toString(), QStringLiteral("Copied!"));
    EXPECT_EQ(list.property("text").toString(), QStringLiteral("Copy “list snapshots” command"));

    waitUntil([&] { return removal.property("text").toString() == QStringLiteral("Copy “delete” command"); },
              QStringLiteral("the button's own text"));
}

TEST_F(BreakdownJourney, WithoutSnapshotsThereIsNoCard)
{
    openOnAMac(macWithSnapshots(0));
    EXPECT_FALSE(shows(QStringLiteral("Snapshots")));

    store().finishBreakdown(macWithSnapshots(1), store().breakdownToken());
    EXPECT_TRUE(shows(QStringLiteral("Snapshots")));
    EXPECT_TRUE(shows(QStringLiteral("1 found")));
}

} // namespace
} // namespace corvane
