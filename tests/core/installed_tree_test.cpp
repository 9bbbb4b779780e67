#include "core/installed_tree.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/dev_junk_rule.h"
#include "platform/fake_file_system.h"
#include "platform/path.h"
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
        std::vector<MeasuredTree> measured;
        for (const NodePtr &each : remains)
            measured.push_back(MeasuredTree::of(each, DevJunkRule::match, files));
        std::vector<NodePtr> left = tree.update(gone, measured);
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

TEST_F(InstalledTreeTest, WhatRemainsOfAFolderWithABuildFolderIsListedLikeTheRest)
{
    const NodePtr remains = makeRoot("/p/web");
    addFile(addFolder(remains, "node_modules"), "m.js", 2'500'000);
    EXPECT_THAT(update({}, {remains}), SizeIs(1));
    EXPECT_THAT(listed(), ElementsAre("A.app", "a.mp4", "m.js", "b.mp4"));
    ASSERT_THAT(tree.devJunk(), SizeIs(1));
    EXPECT_EQ(tree.devJunk().front().node, tree.shared("/p/web/node_modules"));
}

TEST_F(InstalledTreeTest, WhatRemainsOfABuildFolderOrAFileIsListedItself)
{
    const NodePtr modules = makeRoot("/p/web/node_modules");
    addFile(modules, "m.js", 2'500'000);
    const NodePtr film = makeRoot("/p/films/b.mp4", FileNode::Kind::file);
    film->size = 6'000'000;
    EXPECT_THAT(update({}, {modules, film}), SizeIs(2));
    EXPECT_THAT(listed(), ElementsAre("b.mp4", "A.app", "a.mp4", "m.js"));
    EXPECT_EQ(tree.allFiles().front(), tree.shared("/p/films/b.mp4"));
    ASSERT_THAT(tree.devJunk(), SizeIs(1));
    EXPECT_EQ(tree.devJunk().front().node, tree.shared("/p/web/node_modules"));
}

TEST_F(InstalledTreeTest, WhatRemainsInsideAPackageChangesThePackageAlone)
{
    const NodePtr remains = makeRoot("/p/A.app/part.mp4", FileNode::Kind::file);
    remains->size = 2'500'000;
    EXPECT_THAT(update({}, {remains}), SizeIs(1));
    EXPECT_THAT(listed(), ElementsAre("m.js", "a.mp4", "A.app", "b.mp4"));
    EXPECT_EQ(sizeOf(FileType::app), 2'500'000);
    EXPECT_EQ(sizeOf(FileType::video), 5'000'000);
}

TEST_F(InstalledTreeTest, WhatIsTooSmallForANodeCountsAmongTheSmallFiles)
{
    const NodePtr remains = makeRoot("/p/films/b.mp4", FileNode::Kind::file);
    remains->size = 10;
    EXPECT_THAT(update({}, {remains}), SizeIs(1));
    EXPECT_THAT(listed(), ElementsAre("A.app", "m.js", "a.mp4"));
    EXPECT_EQ(sizeOf(FileType::small), 10);
    EXPECT_EQ(sizeOf(FileType::video), 3'000'000);
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

/// Fills folders with files, folders, packages and build folders at random.
class RandomItems {
public:
    explicit RandomItems(unsigned seed) : m_random(seed) {}

    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    void fill(const NodePtr &folder, int depth)
    {
        const int count = upTo(5) + 2;
        for (int i = 0; i < count; ++i) {
            const std::string name = std::to_string(i);
            const int choice = upTo(9);
            if (choice == 0)
                fill(addPackage(folder, name + ".app", 0), depth - 1);
            else if (choice == 1)
                fill(addFolder(folder, "build" + name), depth - 1);
            else if (choice < 6 && depth > 0)
                fill(addFolder(folder, name), depth - 1);
            else
                addFile(folder, name + (choice % 2 == 0 ? ".mp4" : ".zip"), 1'000'000 + upTo(20) * 100'000);
        }
    }

    /// The paths of some of the nodes, which may lie inside one another.
    Gone someOf(const std::vector<NodePtr> &nodes)
    {
        Gone gone;
        for (int i = upTo(4); i > 0; --i)
            gone.push_back({oneOf(nodes)->path(), 1});
        return gone;
    }

    /// New contents for some of the nodes, none of which lies inside another.
    std::vector<NodePtr> replacementsFor(const std::vector<NodePtr> &nodes)
    {
        std::vector<NodePtr> replacements;
        for (int i = upTo(3); i > 0; --i) {
            const NodePtr &old = oneOf(nodes);
            const auto isNested = [path = old->path()](const NodePtr &other) {
                return isOrLiesBeneath(path, other->path()) || isOrLiesBeneath(other->path(), path);
            };
            if (std::ranges::any_of(replacements, isNested))
                continue;
            const NodePtr node = makeRoot(old->path(), old->kind);
            if (old->kind == FileNode::Kind::file)
                node->size = upTo(3) * 600'000;
            else
                fill(node, 1);
            node->unreadable = old->kind != FileNode::Kind::file && upTo(3) == 0;
            replacements.push_back(node);
        }
        return replacements;
    }

private:
    const NodePtr &oneOf(const std::vector<NodePtr> &nodes)
    {
        return nodes[static_cast<std::size_t>(upTo(static_cast<int>(nodes.size()) - 1))];
    }

    std::mt19937 m_random;
};

void collect(const NodePtr &node, std::vector<NodePtr> &into)
{
    into.push_back(node);
    for (const NodePtr &child : node->children)
        collect(child, into);
}

std::multiset<NodePtr> nodesOf(const std::vector<DevJunkItem> &items)
{
    std::multiset<NodePtr> nodes;
    for (const DevJunkItem &item : items)
        nodes.insert(item.node);
    return nodes;
}

std::optional<std::string_view> anyBuildFolder(const FileNode &node, FileSystem &)
{
    return node.size > 0 && node.name.starts_with("build") ? std::optional<std::string_view>("build") : std::nullopt;
}

void expectFreshSummary(const InstalledTree &tree, FileSystem &files)
{
    const NodePtr &root = tree.root();
    const ScanSummary fresh = ScanSummary::make(root, anyBuildFolder, files);
    EXPECT_TRUE(verify(*root));
    EXPECT_EQ(std::multiset(tree.allFiles().begin(), tree.allFiles().end()),
              std::multiset(fresh.allFiles.begin(), fresh.allFiles.end()));
    EXPECT_TRUE(std::ranges::is_sorted(tree.allFiles(), std::ranges::greater(), &FileNode::size));
    EXPECT_EQ(nodesOf(tree.devJunk()), nodesOf(fresh.devJunk));
    EXPECT_EQ(tree.unreadableCount(), fresh.unreadableCount);
    EXPECT_EQ(tree.types(), ScanSummary::types(*root));
    std::vector<NodePtr> nodes;
    collect(root, nodes);
    EXPECT_TRUE(std::ranges::all_of(nodes, [&](const NodePtr &node) { return tree.contains(*node); }));
}

TEST(InstalledTree, AnUpdateLeavesWhatANewSummaryOfTheTreeWouldFind)
{
    FakeFileSystem files;
    for (unsigned seed = 0; seed < 50; ++seed) {
        SCOPED_TRACE(seed);
        RandomItems random(seed);
        const NodePtr root = makeRoot("/p");
        random.fill(root, 3);
        InstalledTree tree(root, ScanSummary::make(root, anyBuildFolder, files), ScanSummary::types(*root), {});
        for (int round = 0; round < 3; ++round) {
            std::vector<NodePtr> nodes;
            collect(root, nodes);
            const Gone gone = random.someOf(nodes);
            std::vector<MeasuredTree> remains;
            for (const NodePtr &replacement : random.replacementsFor(nodes))
                remains.push_back(MeasuredTree::of(replacement, anyBuildFolder, files));
            for (const NodePtr &node : tree.update(gone, remains))
                EXPECT_FALSE(tree.contains(*node));
            expectFreshSummary(tree, files);
        }
    }
}

} // namespace
} // namespace corvane
