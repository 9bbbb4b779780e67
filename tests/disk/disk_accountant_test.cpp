#include "disk/disk_accountant.h"

#include <limits>

#include <gtest/gtest.h>

#include "disk/disk_accountant_fixture.h"

namespace corvane {
namespace {

TEST_F(DiskAccountantTest, WithoutScanAndLayoutTheUsedSpaceIsWhatIsNotAvailableAndNotScannedYet)
{
    for (const auto &location : DiskAccountant::locations)
        sizes[std::string(location.path)] = gb;
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(measured, (std::vector<std::string>{"/Applications", "/Library", "/opt", "/usr/local", "/Users/Shared"}));
    EXPECT_FALSE(breakdown.fromAPFS);
    EXPECT_FALSE(breakdown.hasScan);
    EXPECT_EQ(breakdown.total, 100 * gb);
    EXPECT_EQ(breakdown.free, 40 * gb);
    const BreakdownSegment *hidden = find(breakdown, Kind::hidden);
    ASSERT_NE(hidden, nullptr);
    EXPECT_EQ(hidden->size, 55 * gb);
    EXPECT_EQ(hidden->title, "Not Scanned Yet");
    EXPECT_EQ(hidden->symbol, "questionmark.folder");
    EXPECT_EQ(hidden->detail, "Not scanned yet. Scan your home folder and most of this turns into named folders you "
                              "can explore.");
    EXPECT_EQ(hidden->action, (BreakdownAction{BreakdownAction::Kind::scanHome, {}}));
    EXPECT_EQ(hidden->actionTitle, "Scan Home Folder");
    EXPECT_EQ(sum(breakdown), 60 * gb);
}

TEST_F(DiskAccountantTest, AnUnreadableVolumeTakesTheDefaults)
{
    volume = {};
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(breakdown.volumeName, "Macintosh HD");
    EXPECT_EQ(breakdown.total, 0);
    EXPECT_EQ(breakdown.free, 0);
    EXPECT_TRUE(breakdown.segments.empty());
    EXPECT_EQ(askedTotal, 0);
    EXPECT_EQ(breakdown.explainedPercentage(), 0);
}

TEST_F(DiskAccountantTest, EachMissingFigureTakesItsOwnDefault)
{
    volume.name.reset();
    EXPECT_EQ(compute().volumeName, "Macintosh HD");
    EXPECT_EQ(compute().total, 100 * gb);
    EXPECT_EQ(compute().purgeable, 0); // available for important usage equals available
    volume.availableForImportantUse = 45 * gb;
    EXPECT_EQ(compute().purgeable, 5 * gb);
    volume.available.reset();
    EXPECT_EQ(compute().free, 0);
    EXPECT_EQ(compute().purgeable, 45 * gb);
    volume.total.reset();
    EXPECT_EQ(compute().total, 0);
    EXPECT_EQ(askedTotal, 0);
}

TEST_F(DiskAccountantTest, ADiskOfWhichNothingIsUsedHasNoSegments)
{
    volume.available = 100 * gb;
    const DiskBreakdown breakdown = compute();
    EXPECT_TRUE(breakdown.segments.empty());
    EXPECT_EQ(breakdown.used(), 0);
    EXPECT_EQ(breakdown.explainedPercentage(), 0);
}

TEST_F(DiskAccountantTest, MoreAvailableThanThereIsLeavesNothingToExplain)
{
    volume.available = 200 * gb;
    EXPECT_TRUE(compute().segments.empty());
}

TEST_F(DiskAccountantTest, VolumesAreClassifiedByTheirRolesInAFixedOrder)
{
    container = APFSContainerInfo{500 * gb,
                                  100 * gb,
                                  {{"Both", {"Data", "System"}, 1 * gb},
                                   {"Data", {"VM", "Data"}, 60 * gb},
                                   {"Swap", {"VM", "Preboot"}, 2 * gb},
                                   {"P", {"Preboot"}, 3},
                                   {"R", {"Recovery"}, 30},
                                   {"U", {"Update"}, 300},
                                   {"X", {"xART"}, 3000},
                                   {"H", {"Hardware"}, 30'000},
                                   {"L", {"Prelogin"}, 300'000},
                                   {"I", {"Installer"}, 3'000'000},
                                   {"Work", {}, 7 * gb},
                                   {"Backup", {"Backup"}, 0}}};
    const DiskBreakdown breakdown = compute();
    EXPECT_TRUE(breakdown.fromAPFS);
    EXPECT_EQ(breakdown.total, 500 * gb);
    EXPECT_EQ(breakdown.free, 100 * gb);
    EXPECT_EQ(find(breakdown, Kind::system)->size, 1 * gb);
    EXPECT_EQ(find(breakdown, Kind::system)->title, "macOS");
    EXPECT_EQ(find(breakdown, Kind::vm)->size, 2 * gb);
    EXPECT_EQ(find(breakdown, Kind::support)->size, 3'333'333);
    EXPECT_EQ(find(breakdown, Kind::otherVolume)->id, "vol-Work");
    EXPECT_EQ(find(breakdown, Kind::hidden)->size, 60 * gb);
    EXPECT_EQ(breakdown.segments.back().id, "vol-Backup");
}

TEST_F(DiskAccountantTest, EverySegmentOfAVolumeIsAsItIsShown)
{
    container = APFSContainerInfo{500 * gb,
                                  100 * gb,
                                  {{"Macintosh HD", {"System"}, 9 * gb},
                                   {"VM", {"VM"}, 8 * gb},
                                   {"Preboot", {"Preboot"}, 7 * gb},
                                   {"Work", {"Backup"}, 6 * gb}}};
    EXPECT_EQ(compute().segments,
              (std::vector<BreakdownSegment>{
                  {"system",
                   Kind::system,
                   "macOS",
                   "The read-only system volume, sealed and signed by Apple. It can't be cleaned, and it doesn't need "
                   "to be.",
                   "apple.logo",
                   {0.45, 0.52, 0.62},
                   9 * gb,
                   {},
                   {},
                   {}},
                  {"vm",
                   Kind::vm,
                   "Swap & Sleep Image",
                   "Virtual memory macOS writes to disk when RAM fills up. It shrinks again after a restart.",
                   "memorychip",
                   {0.2, 0.62, 0.7},
                   8 * gb,
                   {},
                   {},
                   {}},
                  {"support",
                   Kind::support,
                   "macOS Support Files",
                   "Boot files, the Recovery system and staged software updates. Managed by macOS.",
                   "wrench.and.screwdriver",
                   {0.6, 0.63, 0.69},
                   7 * gb,
                   {},
                   {},
                   {}},
                  {"vol-Work",
                   Kind::otherVolume,
                   "Work",
                   "Another volume sharing this disk's space.",
                   "externaldrive",
                   {0.78, 0.52, 0.32},
                   6 * gb,
                   {},
                   {},
                   {}},
              }));
}

TEST_F(DiskAccountantTest, ALocationIsAsTheTableSays)
{
    sizes = {{"/opt", gb}};
    EXPECT_EQ(*find(compute(), Kind::measured),
              (BreakdownSegment{"/opt",
                                Kind::measured,
                                "Homebrew (/opt)",
                                "Homebrew packages on Apple Silicon. Tip: `brew cleanup` removes old versions.",
                                "mug",
                                {0.98, 0.56, 0.22},
                                gb,
                                {{"child", 1}},
                                BreakdownAction{BreakdownAction::Kind::reveal, "/opt"},
                                "Show in Finder"}));
}

TEST_F(DiskAccountantTest, ScannedAndMeasuredFoldersTogetherMakeTheOvercount)
{
    container = APFSContainerInfo{100 * gb, 40 * gb, {{"Data", {"Data"}, 10 * gb}, {"S", {"System"}, gb}}};
    sizes = {{"/Library", 4 * gb}};
    scanned("/Users/u", 6 * gb);
    EXPECT_EQ(compute().overcount, 0);
    sizes["/opt"] = limit + 1;
    EXPECT_EQ(compute().overcount, limit + 1);
    EXPECT_EQ(find(compute(), Kind::hidden), nullptr);
}

TEST_F(DiskAccountantTest, AnOverflowOfOurOwnSumsEndsTheProgram)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    sizes = {{"/Library", largest}, {"/opt", largest}};
    EXPECT_DEATH((void)compute(), "");
}

TEST_F(DiskAccountantTest, ALayoutWhoseFiguresCannotBeAddedUpCountsAsUnreadable)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
    const DiskBreakdown expected = compute();
    ASSERT_FALSE(expected.fromAPFS);
    const std::vector<APFSVolumeInfo> system{{"S", {"System"}, gb}};
    for (const APFSContainerInfo &absurd : std::vector<APFSContainerInfo>{
             {10 * gb, gb, {{"A", {"Data"}, largest}, {"B", {"Data"}, 1}}},
             {10 * gb, gb, {{"A", {"Preboot"}, largest}, {"B", {"Recovery"}, largest}}},
             {10 * gb, gb, {{"A", {"VM"}, largest / 2}, {"B", {}, largest / 2}, {"C", {"Data"}, largest / 2}}},
             {10 * gb, gb, {{"A", {"Data"}, -1}}},
             {10 * gb, gb, {{"A", {"Data"}, smallest}}},
             {largest, gb, system},
             {smallest, gb, system},
             {10 * gb, -1, system},
             {10 * gb, largest, system},
         }) {
        container = absurd;
        EXPECT_EQ(compute(), expected) << absurd.ceiling << ' ' << absurd.free << ' ' << absurd.volumes.front().used;
    }
}

TEST_F(DiskAccountantTest, AVolumeWhoseFiguresAreNoSizesCountsAsUnreadable)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    volume = {"Disk", std::nullopt, std::nullopt, std::nullopt};
    const DiskBreakdown expected = compute();
    for (const VolumeFacts &absurd : std::vector<VolumeFacts>{{"Disk", largest, -largest, std::nullopt},
                                                              {"Disk", -1, 0, std::nullopt},
                                                              {"Disk", 10 * gb, gb, largest},
                                                              {"Disk", 10 * gb, -gb, gb}}) {
        volume = absurd;
        EXPECT_EQ(compute(), expected);
    }
}

TEST_F(DiskAccountantTest, SupportVolumesWithoutBytesMakeNoSegment)
{
    container = APFSContainerInfo{10 * gb, 1 * gb, {{"P", {"Preboot"}, 0}}};
    EXPECT_EQ(find(compute(), Kind::support), nullptr);
}

TEST_F(DiskAccountantTest, AContainerWithoutVolumesHasNothingToExplain)
{
    container = APFSContainerInfo{500 * gb, 100 * gb, {}};
    EXPECT_TRUE(compute().segments.empty());
}

TEST_F(DiskAccountantTest, AWholeDiskScanHasNoLocationsAndLeavesOutTheSystemFolder)
{
    sizes["/Library"] = gb;
    scanned("/", 50 * gb);
    scan.systemDirSize = 10 * gb;
    const DiskBreakdown breakdown = compute();
    EXPECT_TRUE(measured.empty());
    const BreakdownSegment *segment = find(breakdown, Kind::scanned);
    EXPECT_EQ(segment->size, 40 * gb);
    EXPECT_EQ(segment->title, "Files Corvane Scanned");
    EXPECT_EQ(segment->detail, "Everything Corvane could read on the disk. Explore it in the Space Map.");
    EXPECT_EQ(segment->symbol, "internaldrive");
}

TEST_F(DiskAccountantTest, ASystemFolderLargerThanTheScanCountsAsNothingScanned)
{
    scanned("/", 5);
    scan.systemDirSize = 10;
    EXPECT_EQ(find(compute(), Kind::scanned)->size, 0);
}

TEST_F(DiskAccountantTest, AHomeScanIsNamedForTheHomeHoweverItsPathIsWritten)
{
    scanned("/Users/x/../u/", 20 * gb);
    scan.topChildren = {{"Movies", 5}};
    const DiskBreakdown breakdown = compute();
    const BreakdownSegment *segment = find(breakdown, Kind::scanned);
    EXPECT_EQ(segment->title, "Your Home Folder");
    EXPECT_EQ(segment->symbol, "house");
    EXPECT_EQ(segment->children, scan.topChildren);
    EXPECT_EQ(segment->color, brandA);
    EXPECT_EQ(segment->action, (BreakdownAction{BreakdownAction::Kind::openMap, {}}));
    EXPECT_EQ(segment->actionTitle, "Open Space Map");
    EXPECT_EQ(find(breakdown, Kind::hidden)->size, 40 * gb);
}

TEST_F(DiskAccountantTest, AnyOtherFolderIsNamedAsScanned)
{
    scanned("/Users/u/Projects", gb);
    EXPECT_EQ(find(compute(), Kind::scanned)->title, "Scanned: Projects");
}

TEST_F(DiskAccountantTest, AScannedLocationIsSkippedAndTheOthersAreMeasuredWithoutTheScan)
{
    sizes = {{"/Users/Shared", gb}, {"/Library", gb}};
    scanned("/Users/Shared", gb);
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(measured, std::vector<std::string>{"/Library"});
    EXPECT_EQ(excluded, "/Users/Shared");
}

TEST_F(DiskAccountantTest, ALocationBeneathTheScanIsSkipped)
{
    sizes = {{"/Users/Shared", gb}, {"/usr/local", gb}};
    scanned("/Users", gb);
    EXPECT_EQ(compute().segments.size(), 3u);
    EXPECT_EQ(measured, std::vector<std::string>{"/usr/local"});
}

TEST_F(DiskAccountantTest, ALocationOfExactlyTheLimitIsDroppedAndNotSubtracted)
{
    sizes = {{"/Library", limit}, {"/opt", limit + 1}};
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(find(breakdown, Kind::measured)->id, "/opt");
    EXPECT_EQ(find(breakdown, Kind::measured)->action, (BreakdownAction{BreakdownAction::Kind::reveal, "/opt"}));
    EXPECT_EQ(find(breakdown, Kind::measured)->actionTitle, "Show in Finder");
    EXPECT_EQ(breakdown.segments.size(), 2u);
    EXPECT_EQ(find(breakdown, Kind::hidden)->size, 60 * gb - limit - 1);
}

TEST_F(DiskAccountantTest, WhatIsCountedTwiceIsTheOvercountAndNothingIsLeftToExplain)
{
    volume.availableForImportantUse = 90 * gb;
    scanned("/Users/u", 60 * gb + 1);
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(breakdown.overcount, 1);
    EXPECT_EQ(breakdown.purgeable, 50 * gb);
    EXPECT_EQ(find(breakdown, Kind::purgeable), nullptr);
    EXPECT_EQ(find(breakdown, Kind::hidden), nullptr);
    scan.rootSize -= 1;
    EXPECT_EQ(compute().overcount, 0);
}

TEST_F(DiskAccountantTest, PlacesOfASystemStayAsTheyAreWhenTheWholeDiskWasScanned)
{
    places = {{"/usr", Kind::measured, "Software", {}, {}, {}, 20 * gb, {}, {}, {}},
              {"home",
               Kind::measured,
               "Your Home Folder",
               {},
               {},
               {},
               30 * gb,
               {},
               BreakdownAction{BreakdownAction::Kind::scanHome, {}},
               "Scan Home Folder"}};
    deniedInPlaces = 3;
    scanned("/", 70 * gb); // more than is used: files with several hard links
    scan.unreadableCount = 4;
    const DiskBreakdown breakdown = compute();
    EXPECT_EQ(excluded, std::nullopt) << "nothing is left out of them";
    EXPECT_EQ(find(breakdown, Kind::scanned), nullptr);
    ASSERT_EQ(breakdown.segments.front().id, "home");
    EXPECT_EQ(breakdown.segments.front().actionTitle, "Open Space Map") << "it has just been scanned";
    EXPECT_EQ(sum(breakdown), 60 * gb);
    EXPECT_EQ(breakdown.overcount, 0);
    EXPECT_TRUE(breakdown.hasScan);
    const BreakdownSegment *const hidden = find(breakdown, Kind::hidden);
    ASSERT_NE(hidden, nullptr);
    EXPECT_EQ(hidden->size, 10 * gb);
    EXPECT_NE(hidden->detail.find("(3)"), std::string::npos) << "each folder that could not be read counts once";

    scanned("/Users/u", 30 * gb);
    places.pop_back();
    EXPECT_NE(find(compute(), Kind::scanned), nullptr);
    EXPECT_EQ(excluded, "/Users/u");
}

TEST_F(DiskAccountantTest, SegmentsOfEqualSizeKeepTheOrderInWhichTheyWereMade)
{
    sizes = {{"/Library", gb}, {"/opt", gb}, {"/Applications", gb}};
    scanned("/Users/u", gb);
    const DiskBreakdown breakdown = compute();
    ASSERT_EQ(breakdown.segments.size(), 5u);
    EXPECT_EQ(breakdown.segments[0].id, "hidden");
    EXPECT_EQ(breakdown.segments[1].id, "scanned");
    EXPECT_EQ(breakdown.segments[2].id, "/Applications");
    EXPECT_EQ(breakdown.segments[3].id, "/Library");
    EXPECT_EQ(breakdown.segments[4].id, "/opt");
}

} // namespace
} // namespace corvane
