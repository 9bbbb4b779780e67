#include "disk/ui/breakdown_presenter.h"

#include <algorithm>
#include <optional>

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include "disk/sample_breakdown.h"
#include "shell/store_with_films.h"
#include "shell/ui/theme.h"
#include "support/patience.h"

namespace corvane {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class BreakdownPresenterTest : public testing::Test, protected StoreWithFilms {
protected:
    BreakdownPresenterTest() { fake.files.setSystemKind(SystemKind::mac); }
    ~BreakdownPresenterTest() override { Theme::instance()->setDark(false); }

    /// Sets the store's breakdown, which the presenter then shows.
    void show(const DiskBreakdown &breakdown)
    {
        store.finishBreakdown(breakdown, store.breakdownToken());
        presenter();
    }
    void showSnapshots(std::vector<LocalSnapshot> snapshots)
    {
        DiskBreakdown disk = test::sampleBreakdown();
        disk.snapshots = std::move(snapshots);
        show(disk);
    }
    void showSnapshots(int count)
    {
        std::vector<LocalSnapshot> snapshots;
        for (int i = 0; i < count; ++i)
            snapshots.push_back(test::snapshotAt(i));
        showSnapshots(std::move(snapshots));
    }
    [[nodiscard]] std::vector<std::string> legend()
    {
        std::vector<std::string> titles;
        for (const StackedBarPart &part : presenter().legend())
            titles.push_back(part.title.toStdString());
        return titles;
    }
    [[nodiscard]] std::vector<std::string> footnotes()
    {
        std::vector<std::string> notes;
        for (const QString &note : presenter().footnotes())
            notes.push_back(note.toStdString());
        return notes;
    }
    int rowOf(const char *id)
    {
        const SegmentModel &model = *presenter().segments();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (model.data(model.index(row), SegmentModel::SegmentIdRole).toString() == QLatin1String(id))
                return row;
        }
        return -1;
    }

    /// Created on first use, with the store's state at that time.
    BreakdownPresenter &presenter()
    {
        if (!made)
            made.emplace(store);
        return *made;
    }

    std::optional<BreakdownPresenter> made;
};

const std::string always = "Sizes are the space files really occupy on disk, so they can differ slightly from the "
                           "sizes Finder shows.";

TEST_F(BreakdownPresenterTest, AsksForABreakdownWhereThereIsNone)
{
    presenter();

    EXPECT_TRUE(presenter().isLoading());
    EXPECT_FALSE(presenter().isAvailable());
    EXPECT_TRUE(QTest::qWaitFor([&] { return presenter().isAvailable(); }, patience));
    EXPECT_FALSE(presenter().isLoading());
    EXPECT_EQ(presenter().freeOn(), QStringLiteral(" free on Macintosh HD"));
}

TEST_F(BreakdownPresenterTest, AsksForNoneWhereThereIsOneOrOneIsUnderWay)
{
    show(test::sampleBreakdown());
    EXPECT_EQ(store.breakdownToken(), 0);

    StoreWithFilms other;
    other.store.refreshBreakdown();
    const BreakdownPresenter late(other.store);
    EXPECT_EQ(other.store.breakdownToken(), 1);
}

TEST_F(BreakdownPresenterTest, RefreshAsksForANewBreakdownAndTheOldOneStaysMeanwhile)
{
    show(test::sampleBreakdown());

    presenter().refresh();

    EXPECT_EQ(store.breakdownToken(), 1);
    EXPECT_TRUE(presenter().isLoading());
    EXPECT_TRUE(presenter().isAvailable());
    EXPECT_EQ(presenter().percentage(), QStringLiteral("95%"));
}

TEST_F(BreakdownPresenterTest, WithoutABreakdownThereIsNothingButTheTextOfMeasuring)
{
    presenter();
    ASSERT_FALSE(presenter().isAvailable());

    EXPECT_EQ(presenter().loadingText(), QStringLiteral("Measuring your disk…"));
    EXPECT_EQ(presenter().summary(), QStringLiteral("Measuring your disk…"));
    EXPECT_EQ(presenter().percentage(), QString());
    EXPECT_EQ(presenter().used() + presenter().usedOf() + presenter().free() + presenter().freeOn(), QString());
    EXPECT_TRUE(presenter().parts().isEmpty());
    EXPECT_THAT(footnotes(), IsEmpty());
    EXPECT_FALSE(presenter().needsScan());
    EXPECT_FALSE(presenter().hasSnapshots());
    EXPECT_EQ(presenter().snapshotsFound() + presenter().moreSnapshots() + presenter().legendRest(), QString());
    EXPECT_EQ(presenter().rest(), 0);
}

TEST_F(BreakdownPresenterTest, ShowsTheExplainedUsedAndFreeSpace)
{
    show(test::sampleBreakdown());

    EXPECT_EQ(presenter().percentage(), QStringLiteral("95%"));
    EXPECT_EQ(presenter().used() + presenter().usedOf(), QStringLiteral("811.29 GB used of 994.66 GB"));
    EXPECT_EQ(presenter().free() + presenter().freeOn(), QStringLiteral("183.37 GB free on Macintosh HD"));
    EXPECT_EQ(presenter().summary(), QStringLiteral("95% of 811.29 GB explained"));
}

TEST_F(BreakdownPresenterTest, NothingUsedIsExplainedByNothing)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.free = disk.total;
    show(disk);

    EXPECT_EQ(presenter().percentage(), QStringLiteral("0%"));
    EXPECT_EQ(presenter().used() + presenter().usedOf(), QStringLiteral("Zero KB used of 994.66 GB"));
    EXPECT_EQ(presenter().summary(), QStringLiteral("0% of Zero KB explained"));
    EXPECT_EQ(presenter().rest(), 0);
}

TEST_F(BreakdownPresenterTest, NegativeFiguresAreShownAsZero)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.total = 10;
    disk.free = 20;
    show(disk);
    EXPECT_EQ(presenter().used(), QStringLiteral("Zero KB"));
    EXPECT_EQ(presenter().percentage(), QStringLiteral("0%"));

    disk.total = 0;
    disk.free = -5;
    store.finishBreakdown(disk, store.breakdownToken());
    EXPECT_EQ(presenter().free(), QStringLiteral("Zero KB"));
    EXPECT_EQ(presenter().parts().constLast().size, 0);
}

TEST_F(BreakdownPresenterTest, PartsAreTheSegmentsInTheirOrderAndTheFreeSpaceLast)
{
    show(test::sampleBreakdown());

    const QList<StackedBarPart> parts = presenter().parts();
    ASSERT_EQ(parts.size(), 8);
    EXPECT_EQ(parts[1].id, QStringLiteral("/Applications"));
    EXPECT_EQ(parts[1].title, QStringLiteral("Applications"));
    EXPECT_EQ(parts[1].info, QStringLiteral("73.8 GB · 9%"));
    EXPECT_EQ(parts[1].color, QColor::fromRgbF(0.24F, 0.52F, 0.98F));
    EXPECT_EQ(parts[1].size, 73'800'000'000);
    EXPECT_EQ(parts[7].id, presenter().freePart());
    EXPECT_EQ(parts[7].title, QStringLiteral("Free"));
    EXPECT_EQ(parts[7].info, QStringLiteral("183.37 GB"));
}

TEST_F(BreakdownPresenterTest, TheSummaryShowsTheUnexplainedPartLastAndPale)
{
    DiskBreakdown disk = test::sampleBreakdown();
    const auto hidden = std::ranges::find(disk.segments, BreakdownSegment::Kind::hidden, &BreakdownSegment::kind);
    ASSERT_NE(hidden, disk.segments.end());
    std::rotate(disk.segments.begin(), hidden, hidden + 1);
    show(disk);

    QList<StackedBarPart> expected = presenter().parts().first(7);
    StackedBarPart unexplained = expected.takeFirst();
    unexplained.color.setAlphaF(0.55F);
    expected.append(unexplained);
    EXPECT_EQ(presenter().summaryParts(), expected);
}

TEST_F(BreakdownPresenterTest, PartsAndTheRestComeToTheWholeContainer)
{
    for (const std::int64_t missing : {std::int64_t{0}, std::int64_t{50'000'000}, std::int64_t{4'290'000'000}}) {
        DiskBreakdown disk = test::sampleBreakdown();
        disk.segments.back().size -= missing;
        show(disk);
        std::int64_t sum = 0;
        for (const StackedBarPart &part : presenter().parts())
            sum += part.size;
        EXPECT_EQ(presenter().rest(), static_cast<double>(missing));
        EXPECT_EQ(sum + missing, disk.total);
    }
}

TEST_F(BreakdownPresenterTest, FreeSpaceHasTheColorOfTheTheme)
{
    show(test::sampleBreakdown());
    const QSignalSpy changes(&presenter(), &BreakdownPresenter::changed);

    Theme::instance()->setDark(true);

    EXPECT_GE(changes.count(), 1);
    EXPECT_EQ(presenter().parts().constLast().color, Theme::instance()->track());
}

TEST_F(BreakdownPresenterTest, LegendNamesTheFiveLargestAndCountsTheOthers)
{
    DiskBreakdown disk = test::sampleBreakdown();
    show(disk);
    EXPECT_THAT(legend(),
                ElementsAre("Your Home Folder", "Applications", "Hidden System Data", "System-wide Library", "macOS"));
    EXPECT_EQ(presenter().legendRest(), QStringLiteral("and 2 smaller"));

    disk.segments.pop_back();
    show(disk);
    EXPECT_EQ(presenter().legendRest(), QStringLiteral("and 1 smaller"));

    disk.segments.pop_back();
    show(disk);
    EXPECT_EQ(legend().size(), 5U);
    EXPECT_EQ(presenter().legendRest(), QString());
}

TEST_F(BreakdownPresenterTest, ALinuxSystemsLegendLeavesTheFoldersToTheRows)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.segments[0].title = "Containers (/var/lib/docker)";
    show(disk);
    EXPECT_EQ(legend().front(), "Containers (/var/lib/docker)") << "a Mac's titles stand as they are";

    disk.system = SystemKind::linuxSystem;
    show(disk);
    EXPECT_EQ(legend().front(), "Containers");
    EXPECT_EQ(legend()[1], "Applications");
    EXPECT_EQ(presenter().parts().front().title, QStringLiteral("Containers (/var/lib/docker)"));
}

TEST_F(BreakdownPresenterTest, OnlyWithoutAScanOneIsWanted)
{
    show(test::sampleBreakdown());
    EXPECT_FALSE(presenter().needsScan());

    show(test::unscannedBreakdown());
    EXPECT_TRUE(presenter().needsScan());
    EXPECT_EQ(presenter().percentage(), QStringLiteral("16%"));
}

TEST_F(BreakdownPresenterTest, AScannedAndReadableDiskHasTheOneFootnote)
{
    show(test::sampleBreakdown());
    EXPECT_THAT(footnotes(), ElementsAre(always));
}

TEST_F(BreakdownPresenterTest, OneByteTooManyIsExplainedByClones)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.overcount = 1;
    show(disk);
    EXPECT_THAT(footnotes(),
                ElementsAre("Scanned files add up to 1 byte more than the disk actually uses. That's normal: copies "
                            "made in Finder on APFS share their storage (clones), so they're counted twice here but "
                            "stored once.",
                            always));
}

TEST_F(BreakdownPresenterTest, AnUnreadableContainerIsSaidAfterTheClones)
{
    DiskBreakdown disk = test::sampleBreakdown();
    disk.fromAPFS = false;
    disk.overcount = 2'140'000'000;
    show(disk);
    ASSERT_EQ(footnotes().size(), 3U);
    EXPECT_THAT(footnotes()[0], testing::StartsWith("Scanned files add up to 2.14 GB more than"));
    EXPECT_EQ(footnotes()[1], "Couldn't read the APFS layout, so macOS, swap and Recovery are shown as one total.");
    EXPECT_EQ(footnotes()[2], always);
}

// --- Snapshots

TEST_F(BreakdownPresenterTest, WithoutSnapshotsThereIsNoCard)
{
    showSnapshots(0);
    EXPECT_FALSE(presenter().hasSnapshots());
    EXPECT_TRUE(presenter().snapshots().isEmpty());
    EXPECT_EQ(presenter().moreSnapshots(), QString());
}

TEST_F(BreakdownPresenterTest, ASnapshotIsShownByItsDate)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    showSnapshots(1);
    EXPECT_TRUE(presenter().hasSnapshots());
    EXPECT_EQ(presenter().snapshotsFound(), QStringLiteral("1 found"));
    ASSERT_EQ(presenter().snapshots().size(), 1);
    const auto local = QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC).toLocalTime();
    EXPECT_EQ(presenter().snapshots()[0].text, QLocale().toString(local, QStringLiteral("MMM d, yyyy")) +
                                                   QStringLiteral(" at ") +
                                                   QLocale().toString(local, QStringLiteral("h:mm AP")));
    EXPECT_EQ(presenter().snapshots()[0].symbol, QString());
}

TEST_F(BreakdownPresenterTest, ASnapshotWithoutADateIsShownByItsName)
{
    showSnapshots({{"com.apple.os.update-\xff", {}}});
    ASSERT_EQ(presenter().snapshots().size(), 1);
    EXPECT_EQ(presenter().snapshots()[0].text, QStringLiteral("com.apple.os.update-\uFFFD"));
    EXPECT_EQ(presenter().snapshots()[0].symbol, QStringLiteral("camera.metering.unknown"));
}

TEST_F(BreakdownPresenterTest, SixSnapshotsAreAllShown)
{
    showSnapshots(6);
    EXPECT_EQ(presenter().snapshotsFound(), QStringLiteral("6 found"));
    EXPECT_EQ(presenter().snapshots().size(), 6);
    EXPECT_EQ(presenter().moreSnapshots(), QString());
}

TEST_F(BreakdownPresenterTest, FromTheSeventhOnSnapshotsAreCounted)
{
    showSnapshots(7);
    EXPECT_EQ(presenter().snapshots().size(), 6);
    EXPECT_EQ(presenter().moreSnapshots(), QStringLiteral("+ 1 more"));

    showSnapshots(9);
    EXPECT_EQ(presenter().snapshotsFound(), QStringLiteral("9 found"));
    EXPECT_EQ(presenter().snapshots().size(), 6);
    EXPECT_EQ(presenter().moreSnapshots(), QStringLiteral("+ 3 more"));
}

TEST_F(BreakdownPresenterTest, TheCommandsAreThoseOfTheSystem)
{
    presenter();
    EXPECT_EQ(presenter().listCommand(), QStringLiteral("tmutil listlocalsnapshots /"));
    EXPECT_EQ(presenter().thinCommand(), QStringLiteral("sudo tmutil thinlocalsnapshots / 999999999999 4"));
}

TEST_F(BreakdownPresenterTest, ASnapshotWithACommandOfItsOwnShowsWhatItTakesAndOffersIt)
{
    fake.files.setSystemKind(SystemKind::linuxSystem);
    DiskBreakdown disk = test::sampleBreakdown();
    disk.system = SystemKind::linuxSystem;
    LocalSnapshot snapper = test::snapshotAt(0);
    snapper.listCommand = "sudo snapper list";
    snapper.deleteCommand = "sudo snapper delete 3";
    LocalSnapshot zfs{.name = "rpool@a",
                      .date = {},
                      .size = 5'000'000,
                      .listCommand = "zfs list -t snapshot",
                      .deleteCommand = "sudo zfs destroy rpool@a"};
    disk.snapshots = {snapper, snapper, zfs};
    show(disk);
    EXPECT_EQ(presenter().snapshots()[0].deleteCommand, QStringLiteral("sudo snapper delete 3"));
    EXPECT_EQ(presenter().snapshots()[2].text, QStringLiteral("rpool@a · 5 MB"));
    EXPECT_EQ(presenter().listCommand(), QStringLiteral("sudo snapper list; zfs list -t snapshot"));
    EXPECT_EQ(presenter().thinCommand(), QString());
}

// --- Actions

TEST_F(BreakdownPresenterTest, AMeasuredFolderIsRevealed)
{
    show(test::sampleBreakdown());
    presenter().perform(rowOf("/Applications"));
    EXPECT_THAT(fake.log->lines(), Contains("reveal /Applications"));
}

TEST_F(BreakdownPresenterTest, TheScannedFolderOpensInTheSpaceMap)
{
    show(test::sampleBreakdown());
    store.setSidebar(StorageStore::SidebarItem::breakdown);
    presenter().perform(rowOf("scanned"));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
}

TEST_F(BreakdownPresenterTest, HiddenDataLeadsToTheSettingsOfFullDiskAccess)
{
    show(test::sampleBreakdown());
    presenter().perform(rowOf("hidden"));
    EXPECT_THAT(fake.log->lines(),
                Contains("openUrl x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"));
}

TEST_F(BreakdownPresenterTest, WhatIsNotScannedYetStartsAScanOfTheHome)
{
    show(test::unscannedBreakdown());
    EXPECT_TRUE(presenter().canScan());
    const QSignalSpy changes(&presenter(), &BreakdownPresenter::canScanChanged);
    Gate gate = blockFolders();

    presenter().perform(rowOf("hidden"));

    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    EXPECT_EQ(store.lastScanPath(), home);
    EXPECT_FALSE(presenter().canScan());
    EXPECT_GE(changes.count(), 1);
    gate.open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return presenter().canScan(); }, patience));
}

TEST_F(BreakdownPresenterTest, TheNudgeStartsAScanOfTheHome)
{
    show(test::unscannedBreakdown());
    presenter().scanHome();
    EXPECT_EQ(store.lastScanPath(), home);
}

TEST_F(BreakdownPresenterTest, ARowWithoutAnActionDoesNothing)
{
    show(test::sampleBreakdown());
    const auto before = fake.log->lines().size();
    presenter().perform(rowOf("system"));
    presenter().perform(-1);
    presenter().perform(100);
    EXPECT_EQ(fake.log->lines().size(), before);
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
}

TEST_F(BreakdownPresenterTest, TheSummaryLeadsToTheScreen)
{
    show(test::sampleBreakdown());
    presenter().openBreakdown();
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::breakdown);
}

TEST_F(BreakdownPresenterTest, ANewBreakdownTakesTheOldOnesPlaceAfterAScan)
{
    show(test::unscannedBreakdown());
    presenter().scanHome();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !presenter().needsScan() && !presenter().isLoading(); }, patience));
    EXPECT_GE(rowOf("scanned"), 0);
    const QString before = presenter().parts().constFirst().info;

    store.didRemove({.removed = {{home + "/Movies/rushes.mov", 27'880'000'000}}, .failures = {}}, false);
    EXPECT_TRUE(presenter().isLoading());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !presenter().isLoading(); }, patience));
    EXPECT_NE(presenter().parts()[rowOf("scanned")].info, before);
}

} // namespace
} // namespace corvane
