#include "disk/disk_breakdown.h"

#include <gtest/gtest.h>

#include "support/tree.h"

namespace corvane {
namespace {

using Kind = BreakdownSegment::Kind;

TEST(DiskBreakdown, HiddenIsTheSumOfTheHiddenSegmentsAlone)
{
    DiskBreakdown breakdown;
    EXPECT_EQ(breakdown.hidden(), 0);
    breakdown.segments.push_back({"scanned", Kind::scanned, {}, {}, {}, {}, 40, {}, {}, {}});
    breakdown.segments.push_back({"hidden", Kind::hidden, {}, {}, {}, {}, 31, {}, {}, {}});
    EXPECT_EQ(breakdown.hidden(), 31);
}

TEST(DiskBreakdown, TheExplainedShareIsRoundedToWholePercent)
{
    DiskBreakdown breakdown;
    breakdown.total = 300;
    breakdown.free = 100;
    breakdown.segments.push_back({"hidden", Kind::hidden, {}, {}, {}, {}, 31, {}, {}, {}});
    EXPECT_EQ(breakdown.used(), 200);
    EXPECT_EQ(breakdown.explainedPercentage(), 85); // 84.5
}

TEST(DiskBreakdown, WhereNothingIsUsedNothingIsExplained)
{
    DiskBreakdown breakdown;
    breakdown.total = 300;
    breakdown.free = 300;
    EXPECT_EQ(breakdown.explainedPercentage(), 0);
    breakdown.free = 299;
    EXPECT_EQ(breakdown.explainedPercentage(), 100);
}

TEST(DiskBreakdown, WithoutAnythingToSayOneNoteAlwaysStands)
{
    DiskBreakdown breakdown;
    breakdown.fromAPFS = true;
    EXPECT_EQ(breakdown.footnotes(),
              (std::vector<std::string>{"Sizes are the space files really occupy on disk, so they can differ slightly "
                                        "from the sizes Finder shows."}));
}

TEST(DiskBreakdown, AnOvercountOfZeroHasNoNoteAndOneOfOneByteHas)
{
    DiskBreakdown breakdown;
    breakdown.fromAPFS = true;
    breakdown.overcount = 1;
    ASSERT_EQ(breakdown.footnotes().size(), 2u);
    EXPECT_EQ(breakdown.footnotes()[0],
              "Scanned files add up to 1 byte more than the disk actually uses. That's normal: copies made in Finder "
              "on APFS share their storage (clones), so they're counted twice here but stored once.");
    breakdown.overcount = 0;
    EXPECT_EQ(breakdown.footnotes().size(), 1u);
}

TEST(DiskBreakdown, ALayoutThatCouldNotBeReadIsNoted)
{
    DiskBreakdown breakdown;
    ASSERT_EQ(breakdown.footnotes().size(), 2u);
    EXPECT_EQ(breakdown.footnotes()[0],
              "Couldn't read the APFS layout, so macOS, swap and Recovery are shown as one total.");
}

TEST(ScanContext, TakesItsFiguresFromTheTree)
{
    const auto root = test::makeRoot("/home/studio");
    for (int i = 1; i <= 7; ++i)
        test::addFile(root, std::to_string(i), i * 1'000'000);

    const ScanContext context = ScanContext::of(*root, 3);

    EXPECT_EQ(context.rootPath, "/home/studio");
    EXPECT_EQ(context.rootSize, 28'000'000);
    EXPECT_EQ(context.unreadableCount, 3);
    EXPECT_EQ(context.topChildren,
              (std::vector<NamedSize>{
                  {"7", 7'000'000}, {"6", 6'000'000}, {"5", 5'000'000}, {"4", 4'000'000}, {"3", 3'000'000}}));
}

TEST(ScanContext, TheSystemFolderCountsApartOnTheWholeDiskAlone)
{
    for (const std::string_view path : {"/", "/home/studio"}) {
        const auto root = test::makeRoot(path);
        for (int i = 1; i <= 6; ++i)
            test::addFile(root, std::to_string(i), i * 1'000'000);
        test::add(root, "System", FileNode::Kind::directory, 500'000, 1);
        EXPECT_EQ(ScanContext::of(*root, 0).systemDirSize, path == "/" ? 500'000 : 0) << path;
    }
}

TEST(ScanContext, TheSystemFolderIsNoneOfTheLargestItemsOfTheWholeDiskForItIsNotPartOfThem)
{
    for (const std::string_view path : {"/", "/home/studio"}) {
        const auto root = test::makeRoot(path);
        test::add(root, "System", FileNode::Kind::directory, 9'000'000, 1);
        for (int i = 1; i <= 5; ++i)
            test::addFile(root, std::to_string(i), i * 1'000'000);
        const ScanContext context = ScanContext::of(*root, 0);
        ASSERT_EQ(context.topChildren.size(), 5U) << path;
        EXPECT_EQ(context.topChildren.front(),
                  (path == "/" ? NamedSize{"5", 5'000'000} : NamedSize{"System", 9'000'000}))
            << path;
    }
}

} // namespace
} // namespace corvane
