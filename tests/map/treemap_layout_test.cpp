#include "map/ui/treemap_layout.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;
using Direction = TreemapLayout::Direction;

/// Four files of one size in a square: two columns of two.
class FourFiles : public testing::Test {
protected:
    FourFiles()
    {
        for (const char *name : {"a", "b", "c", "d"})
            addFile(root, name, 1'000'000);
        layout = TreemapLayout(*root, {200, 200});
    }
    NodePtr root = makeRoot();
    TreemapLayout layout;
    // a c
    // b d
    static constexpr int a = 0, b = 1, c = 2, d = 3;
};

TEST_F(FourFiles, ThePointIsInTheTileUnderIt)
{
    EXPECT_EQ(layout.at({50, 50}), a);
    EXPECT_EQ(layout.at({50, 150}), b);
    EXPECT_EQ(layout.at({150, 50}), c);
    EXPECT_EQ(layout.at({150, 150}), d);
}

TEST_F(FourFiles, TheLinesBetweenTilesBelongToTheTileBesideThem)
{
    EXPECT_EQ(layout.at({0, 0}), a);
    EXPECT_EQ(layout.at({99.5, 50}), a);
    EXPECT_EQ(layout.at({100.5, 50}), c);
}

TEST_F(FourFiles, OutsideTheMapThereIsNoTile)
{
    EXPECT_EQ(layout.at({-1, 50}), -1);
    EXPECT_EQ(layout.at({50, 200}), -1);
    EXPECT_EQ(TreemapLayout().at({50, 50}), -1);
}

TEST_F(FourFiles, TheNeighbourIsTheNearestTileInTheDirection)
{
    EXPECT_EQ(layout.neighbour(a, Direction::right), c);
    EXPECT_EQ(layout.neighbour(a, Direction::down), b);
    EXPECT_EQ(layout.neighbour(d, Direction::left), b);
    EXPECT_EQ(layout.neighbour(d, Direction::up), c);
}

TEST_F(FourFiles, AtTheEdgeThereIsNoNeighbour)
{
    EXPECT_EQ(layout.neighbour(a, Direction::left), -1);
    EXPECT_EQ(layout.neighbour(a, Direction::up), -1);
    EXPECT_EQ(layout.neighbour(d, Direction::right), -1);
    EXPECT_EQ(layout.neighbour(d, Direction::down), -1);
}

TEST(TreemapLayout, OfSeveralNeighboursTheOneBesideTheMiddleIsNearest)
{
    const NodePtr root = makeRoot();
    addFile(root, "left", 6'000'000);
    addFile(root, "top", 2'500'000);
    addFile(root, "bottom", 1'500'000);
    const TreemapLayout layout(*root, {200, 100});
    ASSERT_EQ(layout.count(), 3);
    // The two are stacked in one column on the right; the middle of the left tile is next to the upper one.
    EXPECT_EQ(layout.neighbour(0, Direction::right), 1);
    EXPECT_EQ(layout.neighbour(2, Direction::left), 0);
    EXPECT_EQ(layout.neighbour(1, Direction::down), 2);
}

TEST(TreemapLayout, EveryTileCanBeReachedByArrowKeys)
{
    const NodePtr root = makeRoot();
    for (int i = 0; i < 40; ++i)
        addFile(root, "file" + std::to_string(i), 1'000'000 + i * 137'000);
    const TreemapLayout layout(*root, {720, 500});
    std::vector<bool> reached(static_cast<std::size_t>(layout.count()));
    std::vector<int> pending{layout.first()};
    while (!pending.empty()) {
        const int index = pending.back();
        pending.pop_back();
        if (index < 0 || reached[static_cast<std::size_t>(index)])
            continue;
        reached[static_cast<std::size_t>(index)] = true;
        for (const Direction direction : {Direction::left, Direction::right, Direction::up, Direction::down})
            pending.push_back(layout.neighbour(index, direction));
    }
    EXPECT_EQ(std::count(reached.begin(), reached.end(), false), 0);
}

class Nested : public testing::Test {
protected:
    Nested()
    {
        folder = addFolder(root, "folder");
        first = addFile(folder, "first", 4'000'000);
        second = addFile(folder, "second", 3'000'000);
        third = addFile(folder, "third", 2'000'000);
        file = addFile(root, "file", 3'000'000);
        addSmallFiles(root, 5, 1'000'000);
        layout = TreemapLayout(*root, {400, 300});
    }
    NodePtr root = makeRoot();
    NodePtr folder, first, second, third, file;
    TreemapLayout layout;
};

TEST_F(Nested, ThePointIsInTheDeepestTile)
{
    const QRectF inside = layout.rect(layout.indexOf(first.get()));
    EXPECT_EQ(layout.at(inside.center()), layout.indexOf(first.get()));
    const QRectF frame = layout.rect(layout.indexOf(folder.get()));
    EXPECT_EQ(layout.at(frame.topLeft() + QPointF(20, 10)), layout.indexOf(folder.get())) << "the label's band";
}

TEST_F(Nested, RolesAreFrameLeafAndNested)
{
    EXPECT_EQ(layout.role(layout.indexOf(folder.get())), TileRole::frame);
    EXPECT_EQ(layout.role(layout.indexOf(file.get())), TileRole::leaf);
    EXPECT_EQ(layout.role(layout.indexOf(second.get())), TileRole::nested);
}

TEST_F(Nested, RanksRunFromTheLargestSiblingToTheSmallest)
{
    EXPECT_EQ(layout.rank(layout.indexOf(first.get())), 0);
    EXPECT_EQ(layout.rank(layout.indexOf(second.get())), 0.5);
    EXPECT_EQ(layout.rank(layout.indexOf(third.get())), 1);
}

TEST_F(Nested, ANestedTileBelongsToTheRowOfItsFolder)
{
    EXPECT_EQ(layout.row(layout.indexOf(folder.get())), 0);
    EXPECT_EQ(layout.row(layout.indexOf(third.get())), 0);
    EXPECT_EQ(layout.row(layout.indexOf(file.get())), 1);
}

TEST_F(Nested, ARowBelongsToTheTileOfItsItemAndNotToANestedOne)
{
    EXPECT_EQ(layout.tileOfRow(0), layout.indexOf(folder.get()));
    EXPECT_EQ(layout.tileOfRow(1), layout.indexOf(file.get()));
    EXPECT_EQ(layout.tileOfRow(-1), -1);
    EXPECT_EQ(layout.tileOfRow(7), -1);
}

TEST_F(Nested, TheSmallFilesBelongToTheRowAfterTheLastItem)
{
    const int tile = layout.tileOfRow(2);
    ASSERT_GE(tile, 0);
    EXPECT_EQ(layout.tile(tile).label, "5 small files");
    EXPECT_EQ(layout.row(tile), 2);
}

TEST_F(Nested, TheNeighbourOfANestedTileIsThatOfItsFolder)
{
    EXPECT_EQ(layout.neighbour(layout.indexOf(third.get()), Direction::right),
              layout.neighbour(layout.indexOf(folder.get()), Direction::right));
}

TEST(TreemapLayout, ATileOfSeveralItemsBelongsToNoRow)
{
    const NodePtr root = makeRoot();
    for (int i = 0; i < 70; ++i)
        addFile(root, "file" + std::to_string(i), 1'000'000);
    const TreemapLayout layout(*root, {700, 700});
    EXPECT_EQ(layout.tile(0).label, "10 more items");
    EXPECT_EQ(layout.row(0), -1);
    EXPECT_EQ(layout.tileOfRow(65), -1);
}

TEST(TreemapLayout, AnEmptyFolderHasNoFirstTile)
{
    EXPECT_EQ(TreemapLayout(*makeRoot(), {100, 100}).first(), -1);
}

} // namespace
} // namespace corvane
