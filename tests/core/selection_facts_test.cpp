#include "core/selection_facts.h"

#include <gmock/gmock.h>

#include "core/selected_entry.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const SelectionFacts off{Selected::no, SelectionRefusal::none};
const SelectionFacts mixed{Selected::partly, SelectionRefusal::none};
const SelectionFacts on{Selected::itself, SelectionRefusal::none};
const SelectionFacts covered{Selected::throughFolder, SelectionRefusal::insideSelectedFolder};
const SelectionFacts refused{Selected::no, SelectionRefusal::protectedLocation};

/// Protects the paths that the test names, and records the queries.
class SelectionFactsTest : public testing::Test {
protected:
    SelectionFacts facts(const std::string &path) { return selectionFacts(selection, path, guard); }
    SelectionFacts factsOfAll(const std::vector<std::string> &paths)
    {
        std::vector<SelectedEntry> entries;
        for (const std::string &path : paths)
            entries.push_back({path, 1});
        return selectionFactsOfAll(selection, entries, guard);
    }

    Selection selection;
    std::vector<std::string> protectedPaths;
    std::vector<std::string> asked;
    ProtectionTest guard = [this](const std::string &path) {
        asked.push_back(path);
        return std::ranges::find(protectedPaths, path) != protectedPaths.end();
    };
};

// --- One item

TEST_F(SelectionFactsTest, AnItemIsOffPartlyOnOrSelectedThroughAFolder)
{
    EXPECT_EQ(facts("/a/b"), off);
    selection["/a/b/c"] = 1;
    EXPECT_EQ(facts("/a/b"), mixed);
    EXPECT_EQ(facts("/a/bc"), off) << "a name that only begins like it";
    selection["/a/b"] = 1;
    EXPECT_EQ(facts("/a/b"), on);
    EXPECT_EQ(facts("/a/b/c"), covered) << "although it is selected itself as well";
    EXPECT_EQ(facts("/a/b/x/y"), covered);
    EXPECT_EQ(facts("/a"), mixed);
}

TEST_F(SelectionFactsTest, AProtectedItemIsRefused)
{
    protectedPaths = {"/a"};
    EXPECT_EQ(facts("/a"), refused);
    EXPECT_FALSE(facts("/a").canChange());
}

TEST_F(SelectionFactsTest, AProtectedItemShowsWhatIsSelectedInside)
{
    protectedPaths = {"/a"};
    selection["/a/b"] = 1;
    EXPECT_EQ(facts("/a"), (SelectionFacts{Selected::partly, SelectionRefusal::protectedLocation}));
}

TEST_F(SelectionFactsTest, TheSelectedFolderIsTheReasonBeforeTheProtection)
{
    selection["/a"] = 1;
    protectedPaths = {"/a/b"};
    EXPECT_EQ(facts("/a/b"), covered);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SelectionFactsTest, WhatIsSelectedCanBeTakenOutEvenWhereItIsProtectedByNow)
{
    selection["/a"] = 1;
    protectedPaths = {"/a"};
    EXPECT_EQ(facts("/a"), on);
    EXPECT_THAT(asked, IsEmpty());
}

// --- A location

TEST_F(SelectionFactsTest, ALocationIsOnWhenEveryEntryIs)
{
    const std::vector<std::string> entries{"/a/1", "/a/2"};
    EXPECT_EQ(factsOfAll(entries), off);
    selection["/a/2"] = 1;
    EXPECT_EQ(factsOfAll(entries), mixed);
    selection["/a/1"] = 1;
    EXPECT_EQ(factsOfAll(entries), on);
}

TEST_F(SelectionFactsTest, ALocationIsPartlySelectedThroughWhatLiesInsideAnEntry)
{
    selection["/a/2/deep/down"] = 1;
    EXPECT_EQ(factsOfAll({"/a/1", "/a/2"}), mixed);
}

TEST_F(SelectionFactsTest, ALocationInASelectedFolderGoesWithIt)
{
    selection["/a"] = 1;
    EXPECT_EQ(factsOfAll({"/a/1", "/a/2"}), covered);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(SelectionFactsTest, ALocationWithoutEntriesHasNothingToSelect)
{
    EXPECT_EQ(factsOfAll({}), (SelectionFacts{Selected::no, SelectionRefusal::nothingThere}));
}

TEST_F(SelectionFactsTest, ProtectedEntriesDoNotKeepALocationFromBeingOn)
{
    protectedPaths = {"/a/1"};
    EXPECT_EQ(factsOfAll({"/a/1", "/a/2"}), off);
    selection["/a/2"] = 1;
    EXPECT_EQ(factsOfAll({"/a/1", "/a/2"}), on);
    EXPECT_EQ(factsOfAll({"/a/1"}), refused);
}

TEST_F(SelectionFactsTest, ALocationAsksNoFurtherThanTheFirstEntryThatMayBeSelected)
{
    protectedPaths = {"/a/1"};
    selection["/a/2"] = 1;
    EXPECT_EQ(factsOfAll({"/a/1", "/a/2", "/a/3", "/a/4"}), mixed);
    EXPECT_THAT(asked, ElementsAre("/a/1", "/a/3"));
}

// --- A folder

TEST_F(SelectionFactsTest, AFolderReportsTheStateOfEachItem)
{
    // In byte order "-" and "." come before "/", which comes before "0".
    selection = {{"/f/a/x", 1}, {"/f/a-b", 1}, {"/f/a0/1", 1}, {"/f/a0/2", 1}, {"/f/c", 1}, {"/f/c/x", 1}, {"/g/d", 1}};
    const FolderSelection folder(selection, "/f");
    EXPECT_FALSE(folder.isCovered());
    for (const char *name : {"a", "a-b", "a.b", "a0", "b", "c", "d", "x"})
        EXPECT_EQ(folder.of(name), selectedOf(selection, std::string("/f/") + name)) << name;
    EXPECT_EQ(folder.of("a"), Selected::partly);
    EXPECT_EQ(folder.of("c"), Selected::itself);
}

TEST_F(SelectionFactsTest, InsideASelectedFolderEveryItemIsSelectedThroughIt)
{
    selection = {{"/f", 1}, {"/f/g/a", 1}};
    const FolderSelection folder(selection, "/f/g");
    EXPECT_TRUE(folder.isCovered());
    EXPECT_EQ(folder.of("a"), Selected::throughFolder);
    EXPECT_EQ(folder.of("b"), Selected::throughFolder);
    EXPECT_TRUE(FolderSelection(selection, "/f").isCovered());
}

TEST_F(SelectionFactsTest, TheRootOfTheDiskIsAFolderToo)
{
    selection = {{"/data/film", 1}, {"/tmp", 1}};
    const FolderSelection root(selection, "/");
    EXPECT_EQ(root.of("data"), Selected::partly);
    EXPECT_EQ(root.of("tmp"), Selected::itself);
    EXPECT_EQ(root.of("home"), Selected::no);
}

TEST_F(SelectionFactsTest, TwoStatesOfAFolderDifferInTheItemsThatChanged)
{
    const FolderSelection none;
    const FolderSelection before({{"/f/a", 1}, {"/f/b/x", 1}, {"/f/c", 1}}, "/f");
    const FolderSelection after({{"/f/a", 1}, {"/f/b", 1}, {"/f/d", 1}}, "/f");
    EXPECT_THAT(after.namesThatDiffer(before), UnorderedElementsAre("b", "c", "d"));
    EXPECT_THAT(before.namesThatDiffer(none), UnorderedElementsAre("a", "b", "c"));
    EXPECT_THAT(none.namesThatDiffer(before), UnorderedElementsAre("a", "b", "c"));
    EXPECT_THAT(before.namesThatDiffer(before), IsEmpty());
}

} // namespace
} // namespace corvane
