#include <gtest/gtest.h>

#include "disk/disk_accountant_fixture.h"

namespace corvane {
namespace {

TEST_F(DiskAccountantTest, PurgeableAndHiddenSpaceLookAsTheyAreShown)
{
    volume.availableForImportantUse = 50 * gb;
    const DiskBreakdown breakdown = compute();
    const BreakdownSegment *purgeable = find(breakdown, Kind::purgeable);
    EXPECT_EQ(purgeable->id, "purgeable");
    EXPECT_EQ(purgeable->title, "Purgeable Space");
    EXPECT_EQ(purgeable->symbol, "clock.arrow.2.circlepath");
    EXPECT_EQ(purgeable->color, (Color{0.25, 0.75, 0.62}));
    EXPECT_EQ(purgeable->action, std::nullopt);
    EXPECT_EQ(purgeable->actionTitle, std::nullopt);
    EXPECT_EQ(find(breakdown, Kind::hidden)->id, "hidden");
    EXPECT_EQ(find(breakdown, Kind::hidden)->color, (Color{0.93, 0.42, 0.4}));
}

TEST_F(DiskAccountantTest, SnapshotsAreThereWithoutPurgeableSpaceToo)
{
    snapshots = {{"com.apple.a", std::nullopt}};
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(find(breakdown, Kind::purgeable), nullptr);
    EXPECT_EQ(breakdown.snapshots, snapshots);
}

TEST_F(DiskAccountantTest, PurgeableIsCappedByWhatIsLeftAndThenNothingIsHidden)
{
    volume.availableForImportantUse = 140 * gb;
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(breakdown.purgeable, 100 * gb);
    EXPECT_EQ(find(breakdown, Kind::purgeable)->size, 60 * gb);
    EXPECT_EQ(find(breakdown, Kind::hidden), nullptr);
}

TEST_F(DiskAccountantTest, PurgeableOfExactlyTheLimitIsNotShown)
{
    volume.availableForImportantUse = 40 * gb + limit;
    EXPECT_EQ(find(compute(), Kind::purgeable), nullptr);
    volume.availableForImportantUse = 40 * gb + limit + 1;
    EXPECT_EQ(find(compute(), Kind::purgeable)->size, limit + 1);
}

TEST_F(DiskAccountantTest, HiddenOfExactlyTheLimitIsNotShown)
{
    scanned("/Users/u", 60 * gb - limit);
    EXPECT_EQ(find(compute(), Kind::hidden), nullptr);
    scan.rootSize -= 1;
    EXPECT_EQ(find(compute(), Kind::hidden)->size, limit + 1);
}

TEST_F(DiskAccountantTest, LessForImportantUseThanAvailableIsNotNegative)
{
    volume.availableForImportantUse = 10 * gb;
    EXPECT_EQ(compute().purgeable, 0);
}

TEST_F(DiskAccountantTest, ThePurgeableTextCountsTheSnapshots)
{
    const std::string text = "Local Time Machine snapshots, iCloud copies and caches that macOS frees automatically "
                             "when you need room. Finder counts it as available.";
    volume.availableForImportantUse = 50 * gb;
    EXPECT_EQ(find(compute(), Kind::purgeable)->detail, text);
    snapshots.resize(1);
    EXPECT_EQ(find(compute(), Kind::purgeable)->detail, text + " 1 local Time Machine snapshot found.");
    snapshots.resize(2);
    EXPECT_EQ(find(compute(), Kind::purgeable)->detail, text + " 2 local Time Machine snapshots found.");
    EXPECT_EQ(compute().snapshots.size(), 2u);
}

TEST_F(DiskAccountantTest, HiddenAfterAScanNamesUnreadableFoldersAndOffersAccess)
{
    const std::string text = "Files macOS doesn't let apps measure: system caches and logs in /private/var, other "
                             "users' folders, the Spotlight index and snapshot data.";
    scanned("/Users/u", gb);
    const DiskBreakdown without = compute();
    EXPECT_EQ(find(without, Kind::hidden)->title, "Hidden System Data");
    EXPECT_EQ(find(without, Kind::hidden)->symbol, "eye.slash");
    EXPECT_EQ(find(without, Kind::hidden)->detail, text);
    EXPECT_EQ(find(without, Kind::hidden)->action, (BreakdownAction{BreakdownAction::Kind::fullDiskAccess, {}}));
    EXPECT_EQ(find(without, Kind::hidden)->actionTitle, "Grant Full Disk Access");

    scan.hasFullDiskAccess = true;
    scan.unreadableCount = 1;
    const DiskBreakdown one = compute();
    EXPECT_EQ(find(one, Kind::hidden)->detail, text + " Corvane couldn't open 1 folder during the scan.");
    EXPECT_EQ(find(one, Kind::hidden)->action, std::nullopt);
    scan.unreadableCount = 2;
    EXPECT_EQ(find(compute(), Kind::hidden)->detail, text + " Corvane couldn't open 2 folders during the scan.");
}

TEST_F(DiskAccountantTest, HiddenAfterAStoppedScanSaysThatMostOfItWasNotLookedAt)
{
    scanned("/Users/u", gb);
    const std::string text = find(compute(), Kind::hidden)->detail;
    EXPECT_FALSE(compute().scanIsPartial);
    scan.isPartial = true;
    EXPECT_TRUE(compute().scanIsPartial);
    EXPECT_EQ(find(compute(), Kind::hidden)->detail, text + " The scan was stopped, so most of this was not scanned.");
    scan.rootPath.reset();
    EXPECT_FALSE(compute().scanIsPartial);
}

TEST_F(DiskAccountantTest, HiddenSaysSoWhenTheHomeLiesOutsideTheScan)
{
    const std::string prefix = "Includes the parts of your home folder outside this scan. ";
    const auto hasPrefix = [&] { return find(compute(), Kind::hidden)->detail.starts_with(prefix); };
    scanned("/Users/u/Projects", gb);
    EXPECT_TRUE(hasPrefix());
    scanned("/Users/u2", gb);
    EXPECT_TRUE(hasPrefix());
    scanned("/Use", gb);
    EXPECT_TRUE(hasPrefix());
    scanned("/Users", gb);
    EXPECT_FALSE(hasPrefix());
    scanned("/Users/u", gb);
    EXPECT_FALSE(hasPrefix());
    scanned("/", gb);
    EXPECT_FALSE(hasPrefix());
}

} // namespace
} // namespace corvane
