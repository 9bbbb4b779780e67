#include "core/path_index.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::makeRoot;
using test::NodePtr;

TEST(PathIndex, FindsEveryNodeByItsPath)
{
    for (const char *top : {"/", "/home/u"}) {
        const NodePtr root = makeRoot(top);
        const NodePtr folder = addFolder(root, "Movies");
        const NodePtr file = addFile(folder, "a\xff.mp4", 5);
        PathIndex index;
        for (const NodePtr &node : {root, folder, file})
            index.insert(*node);
        EXPECT_EQ(index.size(), 3u);
        for (const NodePtr &node : {root, folder, file})
            EXPECT_EQ(index.find(node->path()), node.get()) << node->path();
        EXPECT_EQ(index.find(folder->path() + "/b"), nullptr);
        EXPECT_EQ(index.find(folder->path() + "/"), nullptr);
        EXPECT_EQ(index.find("Movies"), nullptr);
        EXPECT_EQ(index.find(""), nullptr);
    }
}

TEST(PathIndex, EmptyIndexFindsNothing)
{
    PathIndex index;
    EXPECT_EQ(index.find("/"), nullptr);
    EXPECT_EQ(index.size(), 0u);
    index.eraseSubtree(*makeRoot("/"));
    EXPECT_EQ(index.size(), 0u);
}

TEST(PathIndex, NodeOfTheSamePathReplacesTheFormer)
{
    const NodePtr first = makeRoot("/a");
    const NodePtr second = makeRoot("/a");
    PathIndex index;
    index.insert(*first);
    index.insert(*second);
    EXPECT_EQ(index.find("/a"), second.get());
    EXPECT_EQ(index.size(), 1u);
}

TEST(PathIndex, ErasedSubtreeIsForgottenAndNothingElse)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr gone = addFolder(root, "gone");
    const NodePtr inner = addFolder(gone, "inner");
    const NodePtr file = addFile(inner, "a", 5);
    const NodePtr neighbour = addFolder(root, "gone too");
    const NodePtr stays = addFile(neighbour, "a", 7);
    PathIndex index;
    for (const NodePtr &node : {root, gone, inner, file, neighbour, stays})
        index.insert(*node);

    index.eraseSubtree(*gone);
    EXPECT_EQ(index.size(), 3u);
    for (const NodePtr &node : {gone, inner, file})
        EXPECT_EQ(index.find(node->path()), nullptr) << node->path();
    for (const NodePtr &node : {root, neighbour, stays})
        EXPECT_EQ(index.find(node->path()), node.get()) << node->path();

    index.eraseSubtree(*gone);
    EXPECT_EQ(index.size(), 3u);
}

TEST(PathIndex, ErasingANodeOfAnotherTreeErasesNothing)
{
    const NodePtr mine = makeRoot("/home/u");
    const NodePtr other = makeRoot("/home/u");
    PathIndex index;
    index.insert(*mine);
    index.eraseSubtree(*other);
    EXPECT_EQ(index.find("/home/u"), mine.get());
}

TEST(PathIndex, MovedFromIndexIsEmptyAndUsable)
{
    const NodePtr root = makeRoot("/home/u");
    PathIndex index;
    index.insert(*root);
    PathIndex taken = std::move(index);
    EXPECT_EQ(taken.find("/home/u"), root.get());
    EXPECT_EQ(index.size(), 0u); // NOLINT(bugprone-use-after-move): the moved-from state is under test
    EXPECT_EQ(index.find("/home/u"), nullptr);
    index.insert(*root);
    EXPECT_EQ(index.find("/home/u"), root.get());

    taken = PathIndex();
    EXPECT_EQ(taken.size(), 0u);
    EXPECT_EQ(taken.find("/home/u"), nullptr);
}

TEST(PathIndex, AgreesWithAPlainListThroughManyChanges)
{
    const NodePtr root = makeRoot("/home/u");
    const FolderPath folder("/home/u");
    std::vector<NodePtr> nodes;
    for (int i = 0; i < 5000; ++i)
        nodes.push_back(std::make_shared<FileNode>(folder, std::to_string(i), FileNode::Kind::file, root));

    std::mt19937 random(7);
    std::vector<bool> present(nodes.size());
    PathIndex index;
    std::size_t count = 0;
    for (int step = 0; step < 100'000; ++step) {
        const std::size_t i = random() % nodes.size();
        if (present[i])
            index.eraseSubtree(*nodes[i]);
        else
            index.insert(*nodes[i]);
        present[i] = !present[i];
        count = present[i] ? count + 1 : count - 1;
        ASSERT_EQ(index.size(), count);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i)
        ASSERT_EQ(index.find(nodes[i]->path()), present[i] ? nodes[i].get() : nullptr) << i;
}

TEST(PathIndex, ReservedRoomHoldsAsManyNodes)
{
    const NodePtr root = makeRoot("/home/u");
    const FolderPath folder("/home/u");
    for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{3}, std::size_t{1000}}) {
        std::vector<NodePtr> nodes;
        PathIndex index;
        index.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            nodes.push_back(std::make_shared<FileNode>(folder, std::to_string(i), FileNode::Kind::file, root));
            index.insert(*nodes.back());
        }
        for (const NodePtr &node : nodes)
            ASSERT_EQ(index.find(node->path()), node.get());
        ASSERT_EQ(index.size(), count);
    }
}

TEST(PathIndex, ErasesASubtreeOfAHundredThousandLevels)
{
    const NodePtr root = makeRoot("/deep");
    PathIndex index;
    index.insert(*root);
    NodePtr folder = root;
    for (int level = 0; level < 100'000; ++level) {
        auto child = std::make_shared<FileNode>(folder->pathForChildren(), "d", FileNode::Kind::directory, folder);
        index.insert(*child);
        folder->children.push_back(child);
        folder = std::move(child);
    }
    EXPECT_EQ(index.find(folder->path()), folder.get());
    ASSERT_EQ(index.size(), 100'001u);
    index.eraseSubtree(*root->children.front());
    EXPECT_EQ(index.size(), 1u);
    EXPECT_EQ(index.find("/deep"), root.get());
}

} // namespace
} // namespace corvane
