#include "map/treemap_builder.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/file_type.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::addSmallFiles;
using test::makeChild;
using test::makeRoot;
using test::NodePtr;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> labels(const std::vector<TreemapItem> &items)
{
    std::vector<std::string> result;
    for (const TreemapItem &item : items)
        result.push_back(item.label);
    return result;
}

std::vector<std::string> labels(const std::vector<TreemapTile> &tiles)
{
    std::vector<std::string> result;
    for (const TreemapTile &tile : tiles)
        result.push_back(tile.label);
    return result;
}

void addFiles(const NodePtr &folder, int count, std::int64_t size)
{
    for (int i = 0; i < count; ++i)
        addFile(folder, "file" + std::to_string(i), size);
}

// --- items

TEST(TreemapItems, AFolderWithoutChildrenAndSmallFilesHasNone)
{
    EXPECT_THAT(TreemapBuilder::items(*makeRoot(), 60), IsEmpty());
}

TEST(TreemapItems, ChildrenBecomeItemsWithTheirNodesNamesAndSizes)
{
    const NodePtr root = makeRoot();
    const NodePtr movie = addFile(root, "movie.mov", 3'000'000);
    const auto items = TreemapBuilder::items(*root, 60);
    ASSERT_THAT(items, SizeIs(1));
    EXPECT_EQ(items[0].node, movie);
    EXPECT_EQ(items[0].label, "movie.mov");
    EXPECT_EQ(items[0].size, 3'000'000);
}

TEST(TreemapItems, SmallFilesBecomeOneAggregate)
{
    const NodePtr root = makeRoot();
    addFile(root, "movie.mov", 3'000'000);
    addSmallFiles(root, 12, 40'000);
    const auto items = TreemapBuilder::items(*root, 60);
    ASSERT_THAT(labels(items), ElementsAre("movie.mov", "12 small files"));
    EXPECT_EQ(items[1].node, nullptr);
    EXPECT_EQ(items[1].size, 40'000);
}

TEST(TreemapItems, OneSmallFileIsNamedInTheSingular)
{
    const NodePtr root = makeRoot();
    addSmallFiles(root, 1, 40'000);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 60)), ElementsAre("1 small file"));
}

TEST(TreemapItems, CountsAreGroupedAsInTheList)
{
    const NodePtr root = makeRoot();
    addSmallFiles(root, 1'234'567, 40'000);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 60)), ElementsAre("1,234,567 small files"));
    addFiles(root, 1'060, 1'000'000);
    EXPECT_EQ(TreemapBuilder::items(*root, 60).front().label, "1,000 more items");
}

TEST(TreemapItems, SmallFilesWithoutBytesGiveNoAggregate)
{
    const NodePtr root = makeRoot();
    addSmallFiles(root, 5, 0);
    EXPECT_THAT(TreemapBuilder::items(*root, 60), IsEmpty());
}

TEST(TreemapItems, AsManyChildrenAsTheLimitAreAllShown)
{
    const NodePtr root = makeRoot();
    addFiles(root, 60, 1'000'000);
    addSmallFiles(root, 2, 10);
    const auto items = TreemapBuilder::items(*root, 60);
    ASSERT_THAT(items, SizeIs(61));
    EXPECT_EQ(items.back().label, "2 small files");
}

TEST(TreemapItems, OneChildBeyondTheLimitIsNamedInTheSingularAndCarriesTheSmallFiles)
{
    const NodePtr root = makeRoot();
    addFiles(root, 61, 1'000'000);
    addSmallFiles(root, 7, 500);
    const auto items = TreemapBuilder::items(*root, 60);
    ASSERT_THAT(items, SizeIs(61));
    EXPECT_EQ(items.front().label, "1 more item") << "the aggregate is the largest here";
    EXPECT_EQ(items.front().size, 1'000'500);
    EXPECT_EQ(items.front().node, nullptr);
}

TEST(TreemapItems, ChildrenBeyondTheLimitAreFoldedIntoOneAggregate)
{
    const NodePtr root = makeRoot();
    addFiles(root, 75, 1'000'000);
    const auto items = TreemapBuilder::items(*root, 60);
    ASSERT_THAT(items, SizeIs(61));
    EXPECT_EQ(items.front().label, "15 more items");
    EXPECT_EQ(items.front().size, 15'000'000);
}

TEST(TreemapItems, ChildrenBeyondTheLimitThatHoldNothingLeaveTheSmallFilesAggregate)
{
    const NodePtr root = makeRoot();
    addFiles(root, 2, 1'000'000);
    addFolder(root, "empty");
    addSmallFiles(root, 3, 900);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 2)), ElementsAre("file0", "file1", "3 small files"));
}

TEST(TreemapItems, ItemsBelowOneByteAreDropped)
{
    const NodePtr root = makeRoot();
    addFolder(root, "empty");
    addFile(root, "one", 1);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 60)), ElementsAre("one"));
}

TEST(TreemapItems, TheAggregateStandsWhereItsSizePutsIt)
{
    const NodePtr root = makeRoot();
    addFile(root, "large", 5'000'000);
    addFile(root, "little", 1'000'000);
    addSmallFiles(root, 9, 2'000'000);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 60)), ElementsAre("large", "9 small files", "little"));
}

TEST(TreemapItems, ItemsOfEqualSizeKeepTheOrderOfTheChildren)
{
    const NodePtr root = makeRoot();
    addFiles(root, 3, 1'000'000);
    addSmallFiles(root, 9, 1'000'000);
    EXPECT_THAT(labels(TreemapBuilder::items(*root, 60)), ElementsAre("file0", "file1", "file2", "9 small files"));
}

// --- colours

TEST(TreemapColors, TheFolderPaletteRepeatsAfterTen)
{
    EXPECT_EQ(TreemapBuilder::folderColor(0), (Color{0.33, 0.43, 1.0}));
    EXPECT_EQ(TreemapBuilder::folderColor(1), (Color{0.62, 0.36, 0.96}));
    EXPECT_EQ(TreemapBuilder::folderColor(2), (Color{0.95, 0.37, 0.55}));
    EXPECT_EQ(TreemapBuilder::folderColor(3), (Color{0.98, 0.56, 0.22}));
    EXPECT_EQ(TreemapBuilder::folderColor(4), (Color{0.13, 0.68, 0.74}));
    EXPECT_EQ(TreemapBuilder::folderColor(5), (Color{0.22, 0.7, 0.45}));
    EXPECT_EQ(TreemapBuilder::folderColor(6), (Color{0.86, 0.42, 0.88}));
    EXPECT_EQ(TreemapBuilder::folderColor(7), (Color{0.3, 0.62, 0.98}));
    EXPECT_EQ(TreemapBuilder::folderColor(8), (Color{0.9, 0.68, 0.16}));
    EXPECT_EQ(TreemapBuilder::folderColor(9), (Color{0.47, 0.4, 0.85}));
    EXPECT_EQ(TreemapBuilder::folderColor(10), TreemapBuilder::folderColor(0));
    EXPECT_EQ(TreemapBuilder::folderColor(63), TreemapBuilder::folderColor(3));
}

TEST(TreemapColors, ANegativeIndexIsBroughtIntoRange)
{
    EXPECT_EQ(TreemapBuilder::folderColor(-1), TreemapBuilder::folderColor(9));
    EXPECT_EQ(TreemapBuilder::folderColor(-10), TreemapBuilder::folderColor(0));
    EXPECT_EQ(TreemapBuilder::folderColor(-23), TreemapBuilder::folderColor(7));
}

TEST(TreemapColors, FoldersGoByPositionFilesAndPackagesByTypeAggregatesAreGrey)
{
    const NodePtr root = makeRoot();
    addFile(root, "a.mov", 9'000'000);
    addPackage(root, "Library.photoslibrary", 8'000'000);
    const NodePtr folder = addFolder(root, "folder");
    addFile(folder, "x", 7'000'000);
    addSmallFiles(root, 3, 6'000'000);
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 100, 100});
    ASSERT_THAT(labels(tiles), ElementsAre("a.mov", "Library.photoslibrary", "folder", "3 small files"));
    EXPECT_EQ(tiles[0].color, FileType(FileType::video).color());
    EXPECT_EQ(tiles[1].color, FileType(FileType::image).color());
    EXPECT_EQ(tiles[2].color, TreemapBuilder::folderColor(2));
    EXPECT_EQ(tiles[3].color, (Color{0.68, 0.7, 0.75}));
}

TEST(TreemapColors, APackageExtensionOnAFileDoesNotMakeItAPackage)
{
    const NodePtr root = makeRoot();
    EXPECT_EQ(TreemapBuilder::itemColor(addFile(root, "x.app", 1).get(), 0), FileType(FileType::other).color());
    EXPECT_EQ(TreemapBuilder::itemColor(addPackage(root, "y.app", 1).get(), 0), FileType(FileType::app).color());
}

// --- tiles

TEST(TreemapTiles, AFolderWithoutChildrenAndSmallFilesHasNone)
{
    EXPECT_THAT(TreemapBuilder::tiles(*makeRoot(), {0, 0, 500, 500}), IsEmpty());
}

TEST(TreemapTiles, ARectangleWithoutAreaHasNone)
{
    const NodePtr root = makeRoot();
    addFile(root, "a", 1'000'000);
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 0, 500}), IsEmpty());
}

TEST(TreemapTiles, EveryTopTileIsInsetByOnePointFive)
{
    const NodePtr root = makeRoot();
    addFile(root, "a", 3'000'000);
    addFile(root, "b", 1'000'000);
    const auto tiles = TreemapBuilder::tiles(*root, {10, 20, 100, 100});
    ASSERT_THAT(tiles, SizeIs(2));
    EXPECT_EQ(tiles[0].rect, (Rect{11.5, 21.5, 72, 97}));
    EXPECT_EQ(tiles[1].rect, (Rect{86.5, 21.5, 22, 97}));
    EXPECT_EQ(tiles[0].depth, 0);
}

TEST(TreemapTiles, ATileMustBeWiderAndTallerThanOnePointAfterTheInset)
{
    const NodePtr root = makeRoot();
    addFile(root, "a", 1'000'000);
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 4, 100}), IsEmpty());
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 100, 4}), IsEmpty());
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 4.25, 4.25}), SizeIs(1));
}

class NestingTest : public testing::Test {
protected:
    NestingTest()
    {
        root = makeRoot();
        folder = addFolder(root, "folder");
        addFile(folder, "inside", 1'000'000);
    }
    NodePtr root;
    NodePtr folder;
};

TEST_F(NestingTest, AFolderOfSeventyByFiftyAfterTheInsetHasNoNestedTiles)
{
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 73, 53});
    ASSERT_THAT(tiles, SizeIs(1));
    EXPECT_EQ(tiles[0].rect, (Rect{1.5, 1.5, 70, 50}));
    EXPECT_FALSE(tiles[0].hasNested);
}

TEST_F(NestingTest, AFolderOfSeventyAndAHalfByFiftyAndAHalfHasNestedTiles)
{
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 73.5, 53.5});
    ASSERT_THAT(labels(tiles), ElementsAre("folder", "inside"));
    EXPECT_EQ(tiles[0].rect, (Rect{1.5, 1.5, 70.5, 50.5}));
    EXPECT_TRUE(tiles[0].hasNested);
    EXPECT_EQ(tiles[1].depth, 1);
    EXPECT_FALSE(tiles[1].hasNested);
    // x + 4, y + 22, width - 8, height - 26, then 0.75 on every side.
    EXPECT_EQ(tiles[1].rect, (Rect{6.25, 24.25, 61, 23}));
}

TEST_F(NestingTest, BothSidesMustBeLargeEnough)
{
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 500, 53}), SizeIs(1));
    EXPECT_THAT(TreemapBuilder::tiles(*root, {0, 0, 73, 500}), SizeIs(1));
}

TEST_F(NestingTest, NestedTilesShareTheirParentsColor)
{
    addFile(folder, "film.mov", 900'000);
    addSmallFiles(folder, 4, 800'000);
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 300, 300});
    ASSERT_THAT(labels(tiles), ElementsAre("folder", "inside", "film.mov", "4 small files"));
    for (const TreemapTile &tile : tiles)
        EXPECT_EQ(tile.color, TreemapBuilder::folderColor(0));
}

TEST_F(NestingTest, NestingIsOneLevelDeep)
{
    const NodePtr deeper = addFolder(folder, "deeper");
    addFile(deeper, "deepest", 5'000'000);
    EXPECT_THAT(labels(TreemapBuilder::tiles(*root, {0, 0, 900, 900})), ElementsAre("folder", "deeper", "inside"));
}

TEST_F(NestingTest, PackagesAndFilesAreNeverNested)
{
    const NodePtr package = addPackage(root, "App.app", 50'000'000);
    addFile(package, "binary", 40'000'000);
    for (const TreemapTile &tile : TreemapBuilder::tiles(*root, {0, 0, 900, 900})) {
        if (tile.node == package) {
            EXPECT_FALSE(tile.hasNested);
        }
        EXPECT_NE(tile.label, "binary");
    }
}

TEST_F(NestingTest, NestedTilesFollowTheirParent)
{
    const NodePtr second = addFolder(root, "second");
    addFile(second, "within", 900'000);
    EXPECT_THAT(labels(TreemapBuilder::tiles(*root, {0, 0, 600, 600})),
                ElementsAre("folder", "inside", "second", "within"));
}

TEST_F(NestingTest, NestedTilesOfTwoPointsOrLessAreLeftOut)
{
    // The inner rectangle is 92 wide, so the second item gets a column of 92 / 1000 points.
    addFile(folder, "sliver", 1'001);
    EXPECT_THAT(labels(TreemapBuilder::tiles(*root, {0, 0, 103, 103})), ElementsAre("folder", "inside"));
}

TEST(TreemapTiles, MoreThanSixtyChildrenGiveOneGreyTileThatCarriesTheSmallFiles)
{
    const NodePtr root = makeRoot();
    addFiles(root, 100, 1'000'000);
    addSmallFiles(root, 5, 250'000);
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 1000, 1000});
    ASSERT_THAT(tiles, SizeIs(61));
    EXPECT_EQ(tiles[0].label, "40 more items");
    EXPECT_EQ(tiles[0].size, 40'250'000);
    EXPECT_EQ(tiles[0].color, FileType(FileType::small).color());
    EXPECT_EQ(tiles[0].node, nullptr);
}

TEST(TreemapTiles, MoreThanFortyChildrenOfANestedFolderGiveOneTileForTheRest)
{
    const NodePtr root = makeRoot();
    const NodePtr folder = addFolder(root, "folder");
    addFiles(folder, 90, 1'000'000);
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 1000, 1000});
    ASSERT_THAT(tiles, SizeIs(1 + 41));
    EXPECT_EQ(tiles[1].label, "50 more items");
}

TEST(TreemapTiles, AFolderThatHoldsOnlySmallFilesHasOneGreyTile)
{
    const NodePtr root = makeRoot();
    addSmallFiles(root, 5, 250'000);
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 1000, 1000});
    ASSERT_THAT(labels(tiles), ElementsAre("5 small files"));
    EXPECT_FALSE(tiles[0].hasNested);
}

NodePtr makeLargestMap()
{
    const NodePtr root = makeRoot();
    for (int i = 0; i < 70; ++i) {
        const NodePtr folder = makeChild(root, "folder" + std::to_string(i), FileNode::Kind::directory);
        for (int j = 0; j < 60; ++j) {
            const NodePtr file = makeChild(folder, "file" + std::to_string(j), FileNode::Kind::file);
            file->size = 1'000'000;
        }
        folder->size = 60'000'000;
    }
    root->size = 70 * 60'000'000LL;
    return root;
}

TEST(TreemapTiles, TheMapIsBoundedHoweverLargeTheFolderIs)
{
    const NodePtr root = makeLargestMap();
    const auto tiles = TreemapBuilder::tiles(*root, {0, 0, 4000, 4000});
    EXPECT_THAT(tiles, SizeIs(61 + 60 * 41));
}

TEST(TreemapTiles, NestedTilesLieInsideTheirParentBelowItsLabelBand)
{
    const NodePtr root = makeLargestMap();
    const Rect whole{0, 0, 1400, 900};
    constexpr double slack = 1e-6;
    Rect parent;
    for (const TreemapTile &tile : TreemapBuilder::tiles(*root, whole)) {
        const Rect &outer = tile.depth == 0 ? whole : parent;
        EXPECT_GE(tile.rect.x, outer.x - slack);
        EXPECT_GE(tile.rect.y, outer.y + (tile.depth == 0 ? 0 : 22) - slack);
        EXPECT_LE(tile.rect.x + tile.rect.width, outer.x + outer.width + slack);
        EXPECT_LE(tile.rect.y + tile.rect.height, outer.y + outer.height + slack);
        if (tile.depth == 0)
            parent = tile.rect;
    }
}

} // namespace
} // namespace corvane
