#include "core/file_node.h"

#include <string>

#include <gtest/gtest.h>

#include "core/path_guard.h"
#include "core/tree_fixture.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;

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

TEST(FileNode, ParentPathShortensTheHomeOfTheCurrentUser)
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

} // namespace
} // namespace corvane
