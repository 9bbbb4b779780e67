#include "core/file_node.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "core/path_guard.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;

// Deep enough that recursion with one stack frame per level would overflow the stack.
constexpr int deep = 100'000;

/// A chain of nested folders with a file of `bytes` bytes at the bottom.
NodePtr makeDeepTree(std::int64_t bytes, NodePtr *bottom = nullptr)
{
    NodePtr root = makeRoot("/deep");
    NodePtr folder = root;
    for (int level = 0; level < deep; ++level) {
        auto child = std::make_shared<FileNode>(folder->pathForChildren(), "d", FileNode::Kind::directory, folder);
        folder->size = bytes;
        folder->fileCount = 1;
        folder->children.push_back(child);
        folder = std::move(child);
    }
    folder->size = bytes;
    folder->fileCount = 1;
    auto file = std::make_shared<FileNode>(folder->pathForChildren(), "movie.mp4", FileNode::Kind::file, folder);
    file->size = bytes;
    folder->children.push_back(file);
    if (bottom != nullptr)
        *bottom = file;
    return root;
}

std::vector<std::string> names(const FileNode &folder)
{
    std::vector<std::string> result;
    for (const NodePtr &child : folder.children)
        result.push_back(child->name);
    return result;
}

TEST(FileNode, NewFolderIsEmptyAndOfTheDistantPast)
{
    const FileNode node("/home/u", FileNode::Kind::directory);
    EXPECT_EQ(node.size, 0);
    EXPECT_EQ(node.fileCount, 0);
    EXPECT_EQ(node.smallFilesSize, 0);
    EXPECT_EQ(node.smallFilesCount, 0);
    EXPECT_EQ(node.modified, distantPast);
    EXPECT_FALSE(node.unreadable);
    EXPECT_FALSE(node.removed);
    EXPECT_EQ(node.parent.lock(), nullptr);
    EXPECT_TRUE(node.children.empty());
}

TEST(FileNode, NewFileCountsAsOneFile)
{
    const NodePtr root = makeRoot();
    const FolderPath folder = root->pathForChildren();
    EXPECT_EQ(FileNode(folder, "a.mp4", FileNode::Kind::file, root).fileCount, 1);
    EXPECT_EQ(FileNode(folder, "A.app", FileNode::Kind::package, root).fileCount, 0);
}

TEST(FileNode, RootOfTheWholeDiskIsNamedMacintoshHD)
{
    const FileNode root("/", FileNode::Kind::directory);
    EXPECT_EQ(root.name, "Macintosh HD");
    EXPECT_EQ(root.path(), "/");
    EXPECT_EQ(root.folderPath(), "/");
}

TEST(FileNode, RootIsNamedByItsLastComponent)
{
    EXPECT_EQ(FileNode("/home/u/Movies", FileNode::Kind::directory).name, "Movies");
}

TEST(FileNode, RootWhoseLastComponentIsEmptyIsNamedByItsWholePath)
{
    EXPECT_EQ(FileNode("/Volumes/Disk/", FileNode::Kind::directory).name, "/Volumes/Disk/");
}

TEST(FileNode, PathIsPutTogetherFromFolderAndName)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "Movies");
    const NodePtr file = addFile(folder, "a.mp4", 5);
    EXPECT_EQ(folder->path(), "/home/u/Movies");
    EXPECT_EQ(file->path(), "/home/u/Movies/a.mp4");
    EXPECT_EQ(file->folderPath(), "/home/u/Movies");
    EXPECT_EQ(root->folderPath(), "/home");
}

TEST(FileNode, PathDirectlyInTheRootOfTheDiskHasOneSlash)
{
    const NodePtr root = makeRoot("/");
    const NodePtr folder = addFolder(root, "opt");
    EXPECT_EQ(folder->path(), "/opt");
    EXPECT_EQ(folder->folderPath(), "/");
    EXPECT_EQ(addFolder(folder, "tool")->path(), "/opt/tool");
}

TEST(FileNode, NameThatIsNotTextKeepsItsBytes)
{
    const NodePtr file = addFile(makeRoot("/home/u"), "a\xff\n.mp4", 5);
    EXPECT_EQ(file->path(), "/home/u/a\xff\n.mp4");
    EXPECT_EQ(file->extension(), "mp4");
}

TEST(FileNode, HasPathAgreesWithPath)
{
    for (const char *top : {"/", "/home", "/home/u"}) {
        const NodePtr root = makeRoot(top);
        const NodePtr folder = addFolder(root, "ab");
        const NodePtr file = addFile(folder, "b", 5);
        for (const NodePtr &node : {root, folder, file}) {
            for (const NodePtr &other : {root, folder, file})
                EXPECT_EQ(node->hasPath(other->path()), node == other) << node->path() << " " << other->path();
            EXPECT_FALSE(node->hasPath(node->path() + "/"));
            EXPECT_FALSE(node->hasPath("/" + node->path()));
            EXPECT_FALSE(node->hasPath(node->name));
            EXPECT_FALSE(node->hasPath(""));
        }
    }
}

TEST(FileNode, HasPathIsNotFooledByASlashInAnotherPlace)
{
    const NodePtr folder = addFolder(makeRoot("/a"), "bc");
    EXPECT_TRUE(folder->hasPath("/a/bc"));
    EXPECT_FALSE(folder->hasPath("/axbc"));
    EXPECT_FALSE(folder->hasPath("/ab/c"));
    EXPECT_FALSE(folder->hasPath("/x/bc"));
    EXPECT_FALSE(addFolder(makeRoot("/"), "bc")->hasPath("xbc"));
}

TEST(FileNode, PathHashIsTheHashOfThePath)
{
    for (const char *top : {"/", "/home", "/home/u"}) {
        const NodePtr root = makeRoot(top);
        const NodePtr folder = addFolder(root, "Movies");
        const NodePtr file = addFile(folder, "a.mp4", 5);
        for (const NodePtr &node : {root, folder, file})
            EXPECT_EQ(node->pathHash(), hashPath(node->path())) << node->path();
    }
}

TEST(FileNode, ParentPathShortensTheHomeFolder)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "Movies");
    const NodePtr file = addFile(folder, "a.mp4", 5);
    EXPECT_EQ(file->parentPath("/home/u"), "~/Movies");
    EXPECT_EQ(folder->parentPath("/home/u"), "~");
    EXPECT_EQ(root->parentPath("/home/u"), "/home");
}

TEST(FileNode, ParentPathLeavesANeighbourOfTheHomeFolderAlone)
{
    const NodePtr file = addFile(makeRoot("/home/ute"), "a.mp4", 5);
    EXPECT_EQ(file->parentPath("/home/u"), "/home/ute");
    EXPECT_EQ(file->parentPath("/home/ute/deeper"), "/home/ute");
    EXPECT_EQ(file->parentPath("/"), "/home/ute");
    EXPECT_EQ(file->parentPath(""), "/home/ute");
}

TEST(FileNode, ParentPathKnowsTheHomeOfTheUser)
{
    const NodePtr root = makeRoot(PathGuard::home());
    EXPECT_EQ(addFile(addFolder(root, "Movies"), "a.mp4", 5)->parentPath(), "~/Movies");
}

TEST(FileNode, ParentPathWorksAfterTheParentIsGone)
{
    NodePtr root = makeRoot("/home/u");
    const NodePtr file = addFile(addFolder(root, "Movies"), "a.mp4", 5);
    root.reset();
    EXPECT_EQ(file->parent.lock(), nullptr);
    EXPECT_EQ(file->parentPath("/home/u"), "~/Movies");
    EXPECT_EQ(file->path(), "/home/u/Movies/a.mp4");
}

TEST(FileNode, TwoNodesOfOnePathAreNotTheSame)
{
    const NodePtr first = addFile(makeRoot("/home/u"), "a.mp4", 5);
    const NodePtr second = addFile(makeRoot("/home/u"), "a.mp4", 5);
    EXPECT_EQ(first->path(), second->path());
    EXPECT_NE(first, second);
}

TEST(FileNode, KindLabelOfAFolderIsFolderWhateverItsName)
{
    const NodePtr root = makeRoot("/home/u/clips.mp4");
    EXPECT_EQ(root->kindLabel(), "Folder");
    EXPECT_EQ(addFolder(root, "x.app")->kindLabel(), "Folder");
}

TEST(FileNode, KindLabelIsTheTypeOfFilesAndPackages)
{
    const NodePtr root = makeRoot("/home/u");
    EXPECT_EQ(addFile(root, "a.MP4", 1)->kindLabel(), "Videos");
    EXPECT_EQ(addFile(root, "a.app", 1)->kindLabel(), "Other");
    EXPECT_EQ(addPackage(root, "A.app", 1)->kindLabel(), "Apps");
    EXPECT_EQ(addPackage(root, "A.zip", 1)->kindLabel(), "Other");
    EXPECT_EQ(addFile(root, "noextension", 1)->kindLabel(), "Other");
    EXPECT_EQ(makeRoot("/Applications/A.app", FileNode::Kind::package)->kindLabel(), "Apps");
}

TEST(FileNode, StaysSmall)
{
    // Hundreds of thousands of nodes are in memory at once; each is one heap block including its reference counts.
    EXPECT_LE(sizeof(FileNode), 128u);
}

TEST(FileNode, TreeOfAHundredThousandLevelsIsLetGoWithoutRecursion)
{
    NodePtr bottom;
    NodePtr root = makeDeepTree(7, &bottom);
    const std::weak_ptr<FileNode> top = root;
    ASSERT_NE(bottom->parent.lock(), nullptr);
    root.reset();
    EXPECT_TRUE(top.expired());
    EXPECT_EQ(bottom->parent.lock(), nullptr);
    EXPECT_EQ(bottom->name, "movie.mp4");

    const std::string path = bottom->path();
    EXPECT_EQ(path.size(), std::string("/deep/movie.mp4").size() + 2 * std::size_t{deep});
    EXPECT_TRUE(bottom->hasPath(path));
    EXPECT_EQ(bottom->pathHash(), hashPath(path));
}

TEST(FileNode, DescendantThatSomeoneHoldsKeepsItsOwnSubtree)
{
    NodePtr root = makeRoot("/home/u");
    NodePtr kept = addFolder(addFolder(root, "a"), "b");
    const NodePtr folder = addFolder(kept, "c");
    const std::weak_ptr<FileNode> file = addFile(folder, "d.mp4", 9);
    root.reset();
    ASSERT_EQ(names(*kept), std::vector<std::string>{"c"});
    ASSERT_EQ(names(*folder), std::vector<std::string>{"d.mp4"});
    EXPECT_EQ(folder->parent.lock(), kept);
    EXPECT_EQ(kept->size, 9);

    kept.reset();
    EXPECT_FALSE(file.expired()) << "its folder is still held";
}

TEST(FileNode, DeepSubtreeThatSomeoneHeldIsLetGoWithoutRecursionToo)
{
    NodePtr root = makeDeepTree(7);
    NodePtr held = root->children.front();
    const std::weak_ptr<FileNode> below = held->children.front();
    root.reset();
    EXPECT_FALSE(below.expired());
    held.reset();
    EXPECT_TRUE(below.expired());
}

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

TEST(Verify, AcceptsATreeWhoseFiguresAddUp)
{
    const NodePtr root = makeRoot("/home/u");
    addFile(addFolder(root, "a"), "b", 100);
    addPackage(root, "c.app", 0);
    addSmallFiles(root, 2, 10);
    EXPECT_TRUE(verify(*root));
}

TEST(Verify, SeesAWrongSizeBelow)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "a");
    addFile(folder, "b", 100);
    folder->size = 99;
    root->size = 99;
    EXPECT_FALSE(verify(*root));
}

TEST(Verify, SeesAFileThatIsNotCounted)
{
    const NodePtr root = makeRoot("/home/u");
    addFile(root, "b", 100);
    root->fileCount = 0;
    EXPECT_FALSE(verify(*root));
}

TEST(Verify, AllowsFilesOfFoldersThatWereDroppedAsEmpty)
{
    const NodePtr root = makeRoot("/home/u");
    addFile(root, "b", 100);
    root->fileCount = 4;
    EXPECT_TRUE(verify(*root));
}

TEST(Verify, SeesAChildOfAnotherFolder)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr folder = addFolder(root, "a");
    addFile(folder, "b", 100)->parent = root;
    EXPECT_FALSE(verify(*root));
}

TEST(Verify, SeesAFileWithChildren)
{
    const NodePtr root = makeRoot("/home/u");
    const NodePtr file = addFile(root, "a", 100);
    addFile(file, "b", 0);
    EXPECT_FALSE(verify(*root));
}

TEST(Verify, WorksAHundredThousandLevelsDeep)
{
    NodePtr bottom;
    const NodePtr root = makeDeepTree(7, &bottom);
    EXPECT_TRUE(verify(*root));
    bottom->size = 8;
    EXPECT_FALSE(verify(*root));
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
