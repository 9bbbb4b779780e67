#include "core/scan_summary.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cleanup/dev_junk_rule.h"
#include "platform/fake_file_system.h"
#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::addSmallFiles;
using test::makeRoot;
using test::NodePtr;

using Lines = std::vector<std::string>;

Lines paths(const std::vector<NodePtr> &nodes)
{
    Lines result;
    for (const NodePtr &node : nodes)
        result.push_back(node->path());
    return result;
}

Lines junk(const ScanSummary &summary)
{
    Lines result;
    for (const DevJunkItem &item : summary.devJunk)
        result.push_back(std::string(item.kind) + " " + item.node->path());
    return result;
}

TEST(ScanSummary, IndexHoldsEveryNode)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    const NodePtr folder = addFolder(root, "folder");
    const NodePtr file = addFile(folder, "a.mp4", 2'000'000);
    const NodePtr package = addPackage(root, "A.app", 0);
    const NodePtr inner = addFile(package, "inner", 3'000'000);
    const ScanSummary summary = ScanSummary::make(root, DevJunkRule::match, files);
    EXPECT_EQ(summary.index.size(), 5u);
    for (const NodePtr &node : {root, folder, file, package, inner})
        EXPECT_EQ(summary.index.find(node->path()), node.get()) << node->path();
}

TEST(ScanSummary, FilesComeLargestFirst)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    addFile(root, "middle", 2'000'000);
    const NodePtr folder = addFolder(root, "folder");
    addFile(folder, "small", 1'000'000);
    addFile(folder, "large", 3'000'000);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles),
              (Lines{"/p/folder/large", "/p/middle", "/p/folder/small"}));
}

TEST(ScanSummary, FilesOfOneSizeKeepTheOrderOfTheWalk)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    for (const char *name : {"c", "a", "d"})
        addFile(root, name, 1'000'000);
    addFile(addFolder(root, "folder"), "b", 1'000'000);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles),
              (Lines{"/p/c", "/p/a", "/p/d", "/p/folder/b"}));
}

TEST(ScanSummary, PackageOfAMillionBytesIsListedOnceAndItsFilesAreNot)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    const NodePtr app = addPackage(root, "A.app", 0);
    addFile(addFolder(app, "Contents"), "movie.mp4", 5'000'000);
    const NodePtr nested = addPackage(app, "Helper.app", 0);
    addFile(nested, "program", 4'000'000);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles), Lines{"/p/A.app"});
}

TEST(ScanSummary, PackageIsListedFromAMillionBytesOn)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    addPackage(root, "large.app", 1'000'000);
    addPackage(root, "small.app", 999'999);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles), Lines{"/p/large.app"});
}

TEST(ScanSummary, FileOfASmallPackageIsNotListedEither)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    const NodePtr app = addPackage(root, "small.app", 0);
    addFile(app, "file", 999'999);
    EXPECT_TRUE(ScanSummary::make(root, DevJunkRule::match, files).allFiles.empty());
}

TEST(ScanSummary, PackageAsTheRootIsListed)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/Applications/A.app", FileNode::Kind::package);
    addFile(root, "program", 4'000'000);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles), Lines{"/Applications/A.app"});
}

TEST(ScanSummary, FlagsEndWithTheirFolder)
{
    FakeFileSystem files;
    files.addFile("/p/package.json", 1);
    files.addFile("/p/q/package.json", 1);
    const NodePtr root = makeRoot("/p");
    addFile(addPackage(root, "A.app", 0), "inside", 9'000'000);
    addFile(addFolder(root, "node_modules"), "x", 8'000'000);
    const NodePtr after = addFolder(root, "q");
    addFile(after, "outside", 2'000'000);
    addFile(addFolder(after, "node_modules"), "y", 1'000'000);
    const ScanSummary summary = ScanSummary::make(root, DevJunkRule::match, files);
    EXPECT_EQ(paths(summary.allFiles), (Lines{"/p/A.app", "/p/node_modules/x", "/p/q/outside", "/p/q/node_modules/y"}));
    EXPECT_EQ(junk(summary), (Lines{"node_modules /p/node_modules", "node_modules /p/q/node_modules"}));
}

TEST(ScanSummary, UnreadableRootIsCountedAndIndexed)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    root->unreadable = true;
    const ScanSummary summary = ScanSummary::make(root, DevJunkRule::match, files);
    EXPECT_EQ(summary.unreadableCount, 1);
    EXPECT_EQ(summary.index.find("/p"), root.get());
    EXPECT_EQ(ScanSummary::make(makeRoot("/q"), DevJunkRule::match, files).unreadableCount, 0);
}

TEST(ScanSummary, EveryUnreadableFolderInTheTreeIsCounted)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    addFolder(root, "a")->unreadable = true;
    addFolder(addPackage(root, "B.app", 0), "c")->unreadable = true;
    EXPECT_EQ(ScanSummary::make(root, DevJunkRule::match, files).unreadableCount, 2);
}

TEST(ScanSummary, BuildFoldersComeLargestFirst)
{
    FakeFileSystem files;
    files.addFile("/p/a/Cargo.toml", 1);
    files.addFile("/p/b/package.json", 1);
    const NodePtr root = makeRoot("/p");
    const NodePtr a = addFolder(root, "a");
    addFile(a, "unrelated", 9'000'000);
    addSmallFiles(addFolder(a, "target"), 1, 10);
    addSmallFiles(addFolder(addFolder(root, "b"), "node_modules"), 1, 20);
    EXPECT_EQ(junk(ScanSummary::make(root, DevJunkRule::match, files)),
              (Lines{"node_modules /p/b/node_modules", "Rust target /p/a/target"}));
}

TEST(ScanSummary, NodeModulesInsideNodeModulesYieldsNoItemOfItsOwn)
{
    FakeFileSystem files;
    files.addFile("/p/package.json", 1);
    files.addFile("/p/node_modules/lib/package.json", 1);
    const NodePtr root = makeRoot("/p");
    const NodePtr outer = addFolder(root, "node_modules");
    addSmallFiles(addFolder(addFolder(outer, "lib"), "node_modules"), 1, 10);
    EXPECT_EQ(junk(ScanSummary::make(root, DevJunkRule::match, files)), Lines{"node_modules /p/node_modules"});
    EXPECT_TRUE(files.log()->linesStartingWith("exists /p/node_modules/lib").empty());
}

TEST(ScanSummary, FilesInsideABuildFolderAreListed)
{
    FakeFileSystem files;
    files.addFile("/p/package.json", 1);
    const NodePtr root = makeRoot("/p");
    addFile(addFolder(root, "node_modules"), "binary", 2'000'000);
    EXPECT_EQ(paths(ScanSummary::make(root, DevJunkRule::match, files).allFiles), Lines{"/p/node_modules/binary"});
}

TEST(ScanSummary, NothingInsideAPackageIsABuildFolder)
{
    FakeFileSystem files;
    files.addFile("/p/A.app/package.json", 1);
    const NodePtr root = makeRoot("/p");
    addSmallFiles(addFolder(addPackage(root, "A.app", 0), "node_modules"), 1, 10);
    EXPECT_TRUE(ScanSummary::make(root, DevJunkRule::match, files).devJunk.empty());
}

TEST(ScanSummary, OnlyFoldersAreBuildFolders)
{
    FakeFileSystem files;
    files.addFile("/p/Cargo.toml", 1);
    files.addFile("/p/build.gradle", 1);
    const NodePtr root = makeRoot("/p");
    addFile(root, "target", 2'000'000);
    addPackage(root, "build", 10);
    EXPECT_TRUE(ScanSummary::make(root, DevJunkRule::match, files).devJunk.empty());
}

TEST(ScanSummary, BuildFolderOfSizeZeroIsNotListed)
{
    FakeFileSystem files;
    files.addFile("/p/Cargo.toml", 1);
    const NodePtr root = makeRoot("/p");
    addFolder(root, "target");
    EXPECT_TRUE(ScanSummary::make(root, DevJunkRule::match, files).devJunk.empty());
}

TEST(ScanSummary, DiskIsAskedForBuildFoldersAlone)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/p");
    addFile(addFolder(addFolder(root, "a"), "b"), "c", 2'000'000);
    addSmallFiles(addFolder(root, "target"), 1, 10);
    (void)ScanSummary::make(root, DevJunkRule::match, files);
    EXPECT_EQ(files.log()->lines(), Lines{"exists /p/Cargo.toml"});
}

TEST(ScanSummary, TreeOfAHundredThousandLevelsIsSummarised)
{
    FakeFileSystem files;
    const NodePtr root = makeRoot("/deep");
    NodePtr folder = root;
    for (int level = 0; level < 100'000; ++level) {
        auto child = std::make_shared<FileNode>(folder->pathForChildren(), "d", FileNode::Kind::directory, folder);
        folder->children.push_back(child);
        folder = std::move(child);
    }
    auto file = std::make_shared<FileNode>(folder->pathForChildren(), "a.mp4", FileNode::Kind::file, folder);
    file->size = 5'000'000;
    folder->children.push_back(file);

    const ScanSummary summary = ScanSummary::make(root, DevJunkRule::match, files);
    EXPECT_EQ(summary.index.size(), 100'002u);
    EXPECT_EQ(summary.index.find(file->path()), file.get());
    EXPECT_EQ(summary.allFiles, std::vector{file});
    EXPECT_EQ(ScanSummary::types(*root), (std::vector<TypeSlice>{{FileType::video, 5'000'000}}));
}

TEST(TypeBreakdown, AddsUpFilesByTheirType)
{
    const NodePtr root = makeRoot("/p");
    addFile(root, "a.mp4", 2'000'000);
    addFile(addFolder(root, "x.app"), "b.MOV", 1'000'000);
    addFile(root, "c.zip", 9'000'000);
    EXPECT_EQ(ScanSummary::types(*root),
              (std::vector<TypeSlice>{{FileType::archive, 9'000'000}, {FileType::video, 3'000'000}}));
}

TEST(TypeBreakdown, WholePackageCountsAsItsType)
{
    const NodePtr root = makeRoot("/p");
    const NodePtr app = addPackage(root, "A.app", 0);
    addFile(app, "movie.mp4", 5'000'000);
    addSmallFiles(app, 3, 100);
    EXPECT_EQ(ScanSummary::types(*root), (std::vector<TypeSlice>{{FileType::app, 5'000'100}}));
}

TEST(TypeBreakdown, SmallFilesOfEveryFolderCountAsSmall)
{
    const NodePtr root = makeRoot("/p");
    addSmallFiles(root, 1, 10);
    addSmallFiles(addFolder(root, "a"), 2, 20);
    addSmallFiles(addFolder(addFolder(root, "b"), "c"), 3, 30);
    EXPECT_EQ(ScanSummary::types(*root), (std::vector<TypeSlice>{{FileType::small, 60}}));
}

TEST(TypeBreakdown, TypesWithoutBytesAreLeftOut)
{
    const NodePtr root = makeRoot("/p");
    addFile(root, "a.mp4", 0);
    addPackage(root, "A.app", 0);
    EXPECT_TRUE(ScanSummary::types(*root).empty());
}

TEST(TypeBreakdown, TypesOfOneSizeKeepTheOrderOfTheCases)
{
    const NodePtr root = makeRoot("/p");
    for (const char *name : {"a.pdf", "a.mp4", "a.xyz", "a.zip"})
        addFile(root, name, 1'000'000);
    EXPECT_EQ(ScanSummary::types(*root), (std::vector<TypeSlice>{{FileType::video, 1'000'000},
                                                                 {FileType::archive, 1'000'000},
                                                                 {FileType::document, 1'000'000},
                                                                 {FileType::other, 1'000'000}}));
}

} // namespace
} // namespace corvane
