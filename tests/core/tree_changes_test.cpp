#include <string>

#include <gtest/gtest.h>

#include "core/file_node.h"
#include "core/tree_fixture.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;

TEST(Detach, EveryAncestorLosesSizeAndFiles)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "a");
    const NodePtr inner = addFolder(folder, "b");
    addFile(inner, "1", 100);
    addSmallFiles(inner, 3, 10);
    addFile(folder, "2", 1000);
    addFile(root, "3", 5);
    ASSERT_TRUE(verify(*root));

    EXPECT_TRUE(detach(*inner));
    EXPECT_TRUE(inner->removed);
    EXPECT_EQ(inner->size, 110);
    EXPECT_EQ(folder->size, 1000);
    EXPECT_EQ(folder->fileCount, 1);
    EXPECT_EQ(root->size, 1005);
    EXPECT_EQ(root->fileCount, 2);
    EXPECT_EQ(names(*folder), std::vector<std::string>{"2"});
    EXPECT_TRUE(verify(*root));
}

TEST(Detach, ManyChildrenOfAFolderLeaveAtOnceAndTheOthersKeepTheirOrder)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr other = addFolder(root, "other");
    addFile(other, "x", 700);
    const NodePtr folder = addFolder(root, "a");
    std::vector<NodePtr> files;
    for (const std::int64_t size : {500, 400, 300, 200, 100})
        files.push_back(addFile(folder, std::to_string(size), size));
    ASSERT_EQ(names(*root), (std::vector<std::string>{"a", "other"}));

    const std::vector<NodePtr> gone = detach(*folder, {files[3].get(), files[0].get(), files[2].get(), other.get()});
    EXPECT_EQ(gone, (std::vector<NodePtr>{files[0], files[2], files[3]}));
    EXPECT_EQ(names(*folder), (std::vector<std::string>{"400", "100"}));
    EXPECT_EQ(names(*root), (std::vector<std::string>{"other", "a"}));
    EXPECT_EQ(root->size, 1'200);
    EXPECT_EQ(root->fileCount, 3);
    EXPECT_TRUE(verify(*root));
    EXPECT_TRUE(files[0]->removed);
    EXPECT_FALSE(files[1]->removed);
    EXPECT_FALSE(other->removed);
    EXPECT_TRUE(detach(*folder, {files[0].get()}).empty());
}

TEST(Detach, NodeThatIsMarkedAlreadyChangesNothing)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr file = addFile(root, "a", 100);
    addFile(root, "b", 1);
    ASSERT_TRUE(detach(*file));
    EXPECT_FALSE(detach(*file));
    EXPECT_EQ(root->size, 1);
    EXPECT_EQ(root->fileCount, 1);
}

TEST(Detach, NodeThatIsMarkedStaysEvenWhereItStillHasItsPlace)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr file = addFile(root, "a", 100);
    file->removed = true;
    EXPECT_FALSE(detach(*file));
    EXPECT_EQ(root->size, 100);
    EXPECT_EQ(names(*root), std::vector<std::string>{"a"});
}

TEST(Detach, NodeBeneathARemovedFolderChangesNothing)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "a");
    const NodePtr inner = addFolder(folder, "b");
    const NodePtr file = addFile(inner, "c", 100);
    ASSERT_TRUE(detach(*folder));
    EXPECT_FALSE(detach(*file));
    EXPECT_FALSE(file->removed);
    EXPECT_EQ(inner->size, 100);
    EXPECT_EQ(root->size, 0);
    EXPECT_TRUE(verify(*folder));
}

TEST(Detach, RootStays)
{
    const NodePtr root = makeRoot("/home/u");
    addFile(root, "a", 100);
    EXPECT_FALSE(detach(*root));
    EXPECT_FALSE(root->removed);
    EXPECT_EQ(root->size, 100);
}

TEST(Detach, NodeWhoseTreeIsGoneStays)
{
    NodePtr root = makeRoot("/home/u");
    const NodePtr file = addFile(root, "a", 100);
    root.reset();
    EXPECT_FALSE(detach(*file));
    EXPECT_FALSE(file->removed);
}

TEST(Detach, NodeThatOnlyTheTreeHeldIsLetGo)
{
    const NodePtr root = makeRoot("/home/u");
    const std::weak_ptr<FileNode> file = addFile(root, "a", 100);
    EXPECT_TRUE(detach(*file.lock()));
    EXPECT_TRUE(file.expired());
    EXPECT_EQ(root->size, 0);
}

TEST(Detach, FolderThatBecomesEmptyStaysInItsPlace)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "a");
    const NodePtr file = addFile(folder, "b", 100);
    ASSERT_TRUE(detach(*file));
    EXPECT_EQ(names(*root), std::vector<std::string>{"a"});
    EXPECT_EQ(folder->size, 0);
    EXPECT_TRUE(folder->children.empty());
}

TEST(Detach, FolderThatShrankMovesBehindItsLargerSiblings)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "shrinks");
    const NodePtr file = addFile(folder, "big", 900);
    addSmallFiles(folder, 1, 100);
    addFile(root, "huge", 5000);
    addFile(root, "first", 500);
    addFile(root, "second", 300);
    addFile(root, "equal", 100);
    addFile(root, "tiny", 10);
    ASSERT_EQ(names(*root), (std::vector<std::string>{"huge", "shrinks", "first", "second", "equal", "tiny"}));

    ASSERT_TRUE(detach(*file));
    EXPECT_EQ(names(*root), (std::vector<std::string>{"huge", "first", "second", "shrinks", "equal", "tiny"}));
    EXPECT_TRUE(verify(*root));
}

TEST(Detach, OrderIsKeptOnEveryLevelAbove)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr outer = addFolder(root, "outer");
    const NodePtr inner = addFolder(outer, "inner");
    const NodePtr file = addFile(inner, "big", 900);
    addSmallFiles(inner, 1, 1);
    addFile(outer, "beside inner", 50);
    addFile(root, "beside outer", 100);

    ASSERT_TRUE(detach(*file));
    EXPECT_EQ(names(*outer), (std::vector<std::string>{"beside inner", "inner"}));
    EXPECT_EQ(names(*root), (std::vector<std::string>{"beside outer", "outer"}));
}

TEST(Detach, WorksAHundredThousandLevelsDeep)
{
    NodePtr bottom;
    const NodePtr root = makeDeepTree(7, &bottom);
    EXPECT_TRUE(detach(*bottom));
    EXPECT_EQ(root->size, 0);
    EXPECT_EQ(root->fileCount, 0);
}

TEST(Attach, GivesEveryAncestorTheFiguresAndItsPlace)
{
    const auto root = std::make_shared<FileNode>("/r", FileNode::Kind::directory);
    const auto folderOf = [](const std::shared_ptr<FileNode> &parent, const char *name, std::int64_t size) {
        auto node = std::make_shared<FileNode>(parent->pathForChildren(), name, FileNode::Kind::directory, parent);
        node->size = node->smallFilesSize = size;
        node->fileCount = node->smallFilesCount = 1;
        parent->children.push_back(node);
        return node;
    };
    const auto large = folderOf(root, "large", 5'000'000);
    const auto small = folderOf(root, "small", 2'000'000);
    root->size = 7'000'000;
    root->fileCount = 2;

    FileNode measured("/r/small/new", FileNode::Kind::directory);
    const auto file = std::make_shared<FileNode>(measured.pathForChildren(), "f", FileNode::Kind::file, nullptr);
    file->size = 4'000'000;
    measured.children.push_back(file);
    measured.size = 4'000'000;
    measured.fileCount = 1;
    attach(small, measured);

    EXPECT_TRUE(verify(*root));
    EXPECT_EQ(root->size, 11'000'000);
    EXPECT_EQ(root->fileCount, 3);
    EXPECT_EQ(root->children.front(), small);
    EXPECT_EQ(file->path(), "/r/small/new/f");
    EXPECT_EQ(file->parent.lock()->path(), "/r/small/new");
}

TEST(Attach, CountsASmallFileWithoutANode)
{
    const auto root = std::make_shared<FileNode>("/r", FileNode::Kind::directory);
    FileNode measured("/r/f", FileNode::Kind::file);
    measured.size = 4'096;
    attach(root, measured);
    EXPECT_TRUE(verify(*root));
    EXPECT_TRUE(root->children.empty());
    EXPECT_EQ(root->smallFilesSize, 4'096);
    EXPECT_EQ(root->fileCount, 1);
}

} // namespace
} // namespace corvane
