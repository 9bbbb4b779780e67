#include "core/installed_tree.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/dev_junk_rule.h"
#include "platform/fake_file_system.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::makeRoot;
using test::NodePtr;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Lines = std::vector<std::string>;
using Gone = std::vector<SelectedEntry>;

/// Of this tree:
///   /p/films    a.mp4 3 MB, b.mp4 2 MB
///   /p/web      package.json, node_modules/m.js 4 MB
///   /p/A.app    part.mp4 5 MB
class InstalledTreeTest : public testing::Test {
protected:
    InstalledTreeTest()
    {
        addFile(films, "a.mp4", 3'000'000);
        addFile(films, "b.mp4", 2'000'000);
        files.addFile("/p/web/package.json", 1);
        addFile(addFolder(addFolder(root, "web"), "node_modules"), "m.js", 4'000'000);
        addFile(addPackage(root, "A.app", 0), "part.mp4", 5'000'000);
        tree = InstalledTree(root, ScanSummary::make(root, DevJunkRule::match, files), ScanSummary::types(*root),
                             {.seconds = 1});
    }

    std::vector<NodePtr> update(const Gone &gone, const std::vector<NodePtr> &remains = {})
    {
        std::vector<NodePtr> left = tree.update(gone, remains, DevJunkRule::match, files);
        EXPECT_TRUE(verify(*root));
        return left;
    }
    Lines listed() const
    {
        Lines names;
        for (const NodePtr &file : tree.allFiles())
            names.push_back(file->name);
        return names;
    }
    std::int64_t sizeOf(FileType type) const
    {
        for (const TypeSlice &slice : tree.types()) {
            if (slice.type == type)
                return slice.size;
        }
        return 0;
    }

    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    const NodePtr films = addFolder(root, "films");
    InstalledTree tree;
};

TEST_F(InstalledTreeTest, WithoutAScanThereIsNothing)
{
    const InstalledTree none;
    EXPECT_EQ(none.root(), nullptr);
    EXPECT_EQ(none.find("/p"), nullptr);
    EXPECT_EQ(none.shared("/p"), nullptr);
    EXPECT_THAT(none.allFiles(), IsEmpty());
    EXPECT_EQ(none.walk().seconds, 0);
}

TEST_F(InstalledTreeTest, ANodeIsFoundByItsPathAndBelongsToTheTreeUntilItLeaves)
{
    EXPECT_EQ(tree.shared("/p"), root);
    EXPECT_EQ(tree.shared("/p/films"), films);
    EXPECT_EQ(tree.shared("/p/filmstrip"), nullptr);
    EXPECT_TRUE(tree.contains(*films));
    EXPECT_FALSE(tree.contains(*makeRoot("/p/films"))) << "another node of that path";
    EXPECT_THAT(update({{"/p/films", 5'000'000}}), ElementsAre(films));
    EXPECT_FALSE(tree.contains(*films));
}

TEST_F(InstalledTreeTest, TheNearestFolderIsTheOneAroundWhatIsGoneOrIsAFile)
{
    EXPECT_EQ(tree.nearestFolder("/p/films"), films);
    EXPECT_EQ(tree.nearestFolder("/p/films/a.mp4"), films);
    EXPECT_EQ(tree.nearestFolder("/p/films/gone/deeper"), films);
    EXPECT_EQ(tree.nearestFolder("/p/A.app/gone"), tree.shared("/p/A.app"));
    EXPECT_EQ(tree.nearestFolder("/p/gone"), root);
    EXPECT_EQ(tree.nearestFolder("/q/films"), root);
    EXPECT_EQ(tree.nearestFolder(""), root);
}

TEST_F(InstalledTreeTest, WhatIsGoneLeavesTheTreeWithItsContentsAndEveryList)
{
    ASSERT_THAT(listed(), ElementsAre("A.app", "m.js", "a.mp4", "b.mp4"));
    ASSERT_THAT(tree.devJunk(), SizeIs(1));
    EXPECT_THAT(update({{"/p/films/a.mp4", 3'000'000}, {"/p/web", 4'000'000}}), SizeIs(2));
    EXPECT_THAT(listed(), ElementsAre("A.app", "b.mp4"));
    EXPECT_THAT(tree.devJunk(), IsEmpty());
    EXPECT_EQ(tree.find("/p/web/node_modules/m.js"), nullptr);
    EXPECT_EQ(sizeOf(FileType::video), 2'000'000);
    EXPECT_EQ(root->size, 7'000'000);
    EXPECT_EQ(tree.walk().seconds, 1) << "the walk was the same";
}

TEST_F(InstalledTreeTest, WhatIsNotInTheTreeAndTheRootChangeNothing)
{
    EXPECT_THAT(update({{"/p/none", 1}, {"/p", 14'000'000}}), IsEmpty());
    EXPECT_EQ(root->size, 14'000'000);
}

TEST_F(InstalledTreeTest, APackageThatHasShrunkTakesItsNewPlaceOrLeavesTheList)
{
    addFile(tree.shared("/p/A.app"), "more.mp4", 1'500'000);
    tree = InstalledTree(root, ScanSummary::make(root, DevJunkRule::match, files), ScanSummary::types(*root), {});
    EXPECT_THAT(update({{"/p/A.app/part.mp4", 5'000'000}}), SizeIs(1));
    EXPECT_THAT(listed(), ElementsAre("m.js", "a.mp4", "b.mp4", "A.app"));
    EXPECT_THAT(update({{"/p/A.app/more.mp4", 1'500'000}}), SizeIs(1));
    EXPECT_THAT(listed(), ElementsAre("m.js", "a.mp4", "b.mp4"));
}

TEST_F(InstalledTreeTest, WhatRemainsOfAFolderTakesItsPlace)
{
    const NodePtr remains = makeRoot("/p/films");
    addFile(remains, "b.mp4", 2'000'000);
    EXPECT_THAT(update({}, {remains}), ElementsAre(films));
    EXPECT_THAT(listed(), ElementsAre("A.app", "m.js", "b.mp4"));
    ASSERT_NE(tree.find("/p/films"), nullptr);
    EXPECT_EQ(tree.find("/p/films")->size, 2'000'000);
    EXPECT_TRUE(tree.contains(*tree.shared("/p/films/b.mp4")));
    EXPECT_EQ(tree.find("/p/films/a.mp4"), nullptr);
    EXPECT_EQ(sizeOf(FileType::video), 2'000'000);
}

TEST_F(InstalledTreeTest, WhatRemainsWhereTheTreeHasNothingIsNotTakenIn)
{
    EXPECT_THAT(update({}, {makeRoot("/p/new"), makeRoot("/p")}), IsEmpty());
    EXPECT_EQ(tree.find("/p/new"), nullptr);
    EXPECT_EQ(root->size, 14'000'000);
}

TEST_F(InstalledTreeTest, TheRootIsGoneWithItselfAndWithAnyFolderAroundIt)
{
    const NodePtr deep = makeRoot("/a/b");
    EXPECT_TRUE(isRootGone(*deep, Gone{{"/x", 1}, {"/a/b", 1}}));
    EXPECT_TRUE(isRootGone(*deep, Gone{{"/a", 1}}));
    EXPECT_FALSE(isRootGone(*deep, Gone{{"/a/b/c", 1}, {"/a/bc", 1}}));
}

} // namespace
} // namespace corvane
