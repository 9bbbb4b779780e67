#include "core/selection.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Selection, FolderAndFileInsideItCountTheFolderOnly)
{
    const Selection selection{{"/home/u/Movies", 500}, {"/home/u/Movies/a.mp4", 200}};
    const Selection effective = effectiveSelection(selection);
    EXPECT_EQ(effective, (Selection{{"/home/u/Movies", 500}}));
    EXPECT_EQ(totalSize(effective), 500);
}

TEST(Selection, EntryDeepInsideASelectedFolderIsCovered)
{
    const Selection selection{{"/a/b", 9}, {"/a/b/c/d/e", 1}, {"/a/b/c/d", 2}};
    EXPECT_EQ(effectiveSelection(selection), (Selection{{"/a/b", 9}}));
}

TEST(Selection, SiblingWhoseNameBeginsAlikeIsNotCovered)
{
    // In byte order "/a/b c" comes between "/a/b" and "/a/b/c".
    const Selection selection{{"/a/b", 1}, {"/a/b c", 2}, {"/a/b/c", 4}, {"/a/bb", 8}, {"/a/b.app/x", 16}};
    EXPECT_EQ(effectiveSelection(selection), (Selection{{"/a/b", 1}, {"/a/b c", 2}, {"/a/bb", 8}, {"/a/b.app/x", 16}}));
}

TEST(Selection, ShortestAncestorHasTwoBytes)
{
    EXPECT_EQ(effectiveSelection({{"/a", 1}, {"/a/b", 2}}), (Selection{{"/a", 1}}));
    EXPECT_EQ(effectiveSelection({{"/", 1}, {"/a", 2}}), (Selection{{"/", 1}, {"/a", 2}}));
    EXPECT_FALSE(hasSelectedAncestor({{"a", 1}}, "a/b"));
}

TEST(Selection, EntryIsNotItsOwnAncestor)
{
    EXPECT_FALSE(hasSelectedAncestor({{"/a/b", 1}}, "/a/b"));
    EXPECT_EQ(effectiveSelection({{"/a/b", 1}}), (Selection{{"/a/b", 1}}));
}

TEST(Selection, PathInsideASelectedFolderHasASelectedAncestor)
{
    const Selection selection{{"/a/b", 1}};
    EXPECT_TRUE(hasSelectedAncestor(selection, "/a/b/c"));
    EXPECT_TRUE(hasSelectedAncestor(selection, "/a/b/c/d"));
    EXPECT_FALSE(hasSelectedAncestor(selection, "/a/bc"));
    EXPECT_FALSE(hasSelectedAncestor(selection, "/a"));
    EXPECT_FALSE(hasSelectedAncestor({{"/", 1}}, "/a/b"));
}

TEST(Selection, AFolderHasWhatIsSelectedBeneathItInside)
{
    // In byte order "/a/b c" comes between "/a/b" and "/a/b/c".
    const Selection selection{{"/a/b c", 1}, {"/a/b/c/d", 2}, {"/a/e", 3}};
    EXPECT_TRUE(hasSelectedInside(selection, "/a"));
    EXPECT_TRUE(hasSelectedInside(selection, "/a/b"));
    EXPECT_TRUE(hasSelectedInside(selection, "/"));
    EXPECT_FALSE(hasSelectedInside(selection, "/a/b c"));
    EXPECT_FALSE(hasSelectedInside(selection, "/a/e")) << "it is selected itself";
    EXPECT_FALSE(hasSelectedInside(selection, "/a/b/c/d/e"));
    EXPECT_FALSE(hasSelectedInside({}, "/"));
}

TEST(Selection, WhatIsSelectedAndWhatLiesInsideItIsCovered)
{
    const Selection selection{{"/a/b", 1}};
    EXPECT_TRUE(isCovered(selection, "/a/b"));
    EXPECT_TRUE(isCovered(selection, "/a/b/c/d"));
    EXPECT_FALSE(isCovered(selection, "/a"));
    EXPECT_FALSE(isCovered(selection, "/a/bc"));
}

TEST(Selection, EntriesComeLargestFirstThenByPath)
{
    const Selection effective{{"/a", 1}, {"/b", 7}, {"/c", 1}, {"/d", 7}, {"/e", 9}};
    const std::vector<SelectedEntry> expected{{"/e", 9}, {"/b", 7}, {"/d", 7}, {"/a", 1}, {"/c", 1}};
    EXPECT_EQ(selectedEntries(effective), expected);
}

TEST(Selection, EmptySelectionHasNoEntriesAndNoBytes)
{
    EXPECT_TRUE(effectiveSelection({}).empty());
    EXPECT_TRUE(selectedEntries({}).empty());
    EXPECT_EQ(totalSize({}), 0);
}

TEST(Selection, WhatIsTakenFromInsideAnItemMakesItSmaller)
{
    const Selection gone{{"/a", 50}, {"/a/b", 3}, {"/a/c/d", 4}, {"/a.b", 20}, {"/ab", 30}};
    std::int64_t size = 10;
    EXPECT_TRUE(takeInside(gone, "/a", size));
    EXPECT_EQ(size, 3) << "neither it nor what is named like it counts";
    EXPECT_FALSE(takeInside(gone, "/ab", size));
    EXPECT_EQ(size, 3);
    EXPECT_TRUE(takeInside(gone, "/a", size));
    EXPECT_EQ(size, 0) << "figures of another moment may come to more";
}

TEST(Selection, PathsAreBytesAndNeedNotBeText)
{
    const Selection selection{{"/a/\xff", 3}, {"/a/\xff/\xfe", 2}, {"/a/\xfe", 1}};
    EXPECT_EQ(effectiveSelection(selection), (Selection{{"/a/\xff", 3}, {"/a/\xfe", 1}}));
}

TEST(SelectionDeath, SumBeyondSixtyThreeBitsStopsTheProgram)
{
    const Selection selection{{"/a", INT64_MAX}, {"/b", 1}};
    EXPECT_DEATH((void)totalSize(selection), "");
}

TEST(EntriesAround, AreTheItemAndTheFoldersAroundItInnermostFirst)
{
    const Selection selection{{"/srv", 1}, {"/srv/a", 1}, {"/srv/a/b/c", 1}, {"/srv/a b", 1}};
    EXPECT_EQ(entriesAround(selection, "/srv/a/b/c"), (std::vector<std::string>{"/srv/a/b/c", "/srv/a", "/srv"}));
    EXPECT_EQ(entriesAround(selection, "/srv/a/b"), (std::vector<std::string>{"/srv/a", "/srv"}));
    EXPECT_TRUE(entriesAround(selection, "/other").empty());
}

} // namespace
} // namespace corvane
