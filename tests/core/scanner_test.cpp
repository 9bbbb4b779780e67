#include "core/scanner.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <limits>
#include <thread>

#include <gmock/gmock.h>

#include "core/foreign_sum.h"
#include "core/scanner_fixture.h"
#include "platform/made_up_folder.h"
#include "platform/protected_places.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Time seconds(std::int64_t since1970)
{
    return Time(std::chrono::seconds(since1970));
}

TEST_F(ScannerTest, FileOfExactlyOneMegabyteGetsANode)
{
    files.addFile("/r/exact", 1'000'000, seconds(1'700'000'000));
    files.addFile("/r/less", 999'999, seconds(1'700'000'000));
    const auto root = scan();
    ASSERT_EQ(root->children.size(), 1U);
    const FileNode &exact = *root->children.front();
    EXPECT_EQ(exact.name, "exact");
    EXPECT_EQ(exact.kind, FileNode::Kind::file);
    EXPECT_EQ(exact.size, 1'000'000);
    EXPECT_EQ(exact.fileCount, 1);
    EXPECT_EQ(exact.modified, seconds(1'700'000'000));
    EXPECT_EQ(exact.parent.lock(), root);
    EXPECT_EQ(exact.path(), "/r/exact");
    EXPECT_EQ(root->smallFilesSize, 999'999);
    EXPECT_EQ(root->smallFilesCount, 1);
    EXPECT_EQ(root->size, 1'999'999);
    EXPECT_EQ(root->fileCount, 2);
}

TEST_F(ScannerTest, EmptyFolderDisappears)
{
    files.addFolder("/r/empty/nested/deeper");
    files.addFile("/r/a/b/file", 10);
    const auto root = scan();
    EXPECT_THAT(childrenOf(*root), ElementsAre(std::pair("a", 10)));
}

TEST_F(ScannerTest, FolderOfSmallFilesOfNoSizeDisappearsButItsFilesCount)
{
    files.addFile("/r/zeros/a", 0);
    files.addFile("/r/zeros/deep/b", 0);
    files.addFile("/r/c", 5);
    const auto root = scan();
    EXPECT_THAT(root->children, IsEmpty());
    EXPECT_EQ(root->fileCount, 3);
    EXPECT_EQ(root->smallFilesCount, 1);
    EXPECT_EQ(root->size, 5);
}

TEST_F(ScannerTest, FolderHoldingOnlySmallFilesStaysWithoutChildren)
{
    files.addFile("/r/a/b/c/one", 100);
    files.addFile("/r/a/b/c/two", 200);
    const auto c = at(scan(), "a/b/c");
    EXPECT_THAT(c->children, IsEmpty());
    EXPECT_EQ(c->size, 300);
    EXPECT_EQ(c->smallFilesSize, 300);
    EXPECT_EQ(c->smallFilesCount, 2);
    EXPECT_EQ(c->fileCount, 2);
}

TEST_F(ScannerTest, UnreadableFolderIsDropped)
{
    for (const std::string folder : {"/r", "/r/a", "/r/a/b", "/r/a/b/c"}) { // covers every level's walking strategy
        files.addFile(folder + "/closed/file", 5'000'000);
        files.failOpening(folder + "/closed");
        files.addFile(folder + "/open/file", 10);
    }
    const auto root = scan();
    EXPECT_EQ(root->size, 40);
    EXPECT_EQ(root->fileCount, 4);
    EXPECT_FALSE(root->unreadable);
    EXPECT_THAT(childrenOf(*root), ElementsAre(std::pair("a", 30), std::pair("open", 10)));
    EXPECT_THAT(childrenOf(*at(root, "a/b/c")), ElementsAre(std::pair("open", 10)));
}

TEST_F(ScannerTest, AListingThatBreaksOffCountsNothing)
{
    for (const std::string folder : {"/r/a", "/r/a/b", "/r/a/b/c"}) {
        files.addFile(folder + "/broken/large", 2'000'000);
        files.addFile(folder + "/broken/small", 10);
        files.addFile(folder + "/broken/folder/file", 10);
        files.failListing(folder + "/broken", std::errc::io_error, 3);
        files.addFile(folder + "/file", 1);
    }
    const auto root = scan();
    EXPECT_EQ(root->size, 3);
    EXPECT_EQ(root->fileCount, 3);
    EXPECT_EQ(progress.counters().files, 3);
    EXPECT_EQ(progress.counters().bytes, 3);
    EXPECT_THAT(files.log()->linesStartingWith("openChild /r/a/broken/"), IsEmpty());
}

TEST_F(ScannerTest, UnreadableRootComesBackFlagged)
{
    files.addFile("/r/file", 10);
    files.failListing("/r", std::errc::permission_denied, 1);
    auto root = scan();
    EXPECT_TRUE(root->unreadable);
    EXPECT_EQ(root->size, 0);
    EXPECT_EQ(root->fileCount, 0);
    EXPECT_THAT(root->children, IsEmpty());

    files.failOpening("/r");
    EXPECT_TRUE(scan()->unreadable);
    EXPECT_TRUE(scan("/missing")->unreadable);
    EXPECT_TRUE(scan("/r/file")->unreadable);
}

TEST_F(ScannerTest, AFileWhoseFactsCannotBeReadCountsAsOneOfNoSize)
{
    files.addFile("/r/unknown", 5'000'000);
    files.failFacts("/r/unknown");
    const auto root = scan();
    EXPECT_THAT(root->children, IsEmpty());
    EXPECT_EQ(root->fileCount, 1);
    EXPECT_EQ(root->smallFilesCount, 1);
    EXPECT_EQ(root->size, 0);
}

TEST_F(ScannerTest, AFolderThatVanishesMeanwhileIsNothingSpecial)
{
    files.addFile("/r/a/gone/file", 10);
    files.addFile("/r/a/stays/file", 10);
    files.makeVanish("/r/a/gone");
    EXPECT_THAT(childrenOf(*at(scan(), "a")), ElementsAre(std::pair("stays", 10)));
}

TEST_F(ScannerTest, SymbolicLinkAddsNothing)
{
    files.addFile("/large/file", 9'000'000);
    files.addLink("/r/link to folder", "/large");
    files.addLink("/r/a/b/link to folder", "/large");
    files.addLink("/r/link to file", "/large/file");
    files.addFile("/r/file", 10);
    const auto root = scan();
    EXPECT_EQ(root->size, 10);
    EXPECT_EQ(root->fileCount, 1);
    EXPECT_THAT(root->children, IsEmpty());
}

TEST_F(ScannerTest, ChildrenAreLargestFirstAndEqualSizesKeepFoldersFirstThenListingOrder)
{
    files.addFile("/r/file b", 2'000'000);
    files.addFile("/r/folder b/x", 2'000'000);
    files.addFile("/r/file a", 2'000'000);
    files.addFile("/r/folder a/x", 2'000'000);
    files.addFile("/r/largest", 3'000'000);
    files.addFile("/r/smallest/x", 1);
    EXPECT_THAT(childrenOf(*scan()), ElementsAre(std::pair("largest", 3'000'000), std::pair("folder b", 2'000'000),
                                                 std::pair("folder a", 2'000'000), std::pair("file b", 2'000'000),
                                                 std::pair("file a", 2'000'000), std::pair("smallest", 1)));
}

TEST_F(ScannerTest, ThereIsNoRoomLeftBehindTheChildren)
{
    for (int i = 0; i < 5; ++i)
        files.addFile("/r/a/b/c/file" + std::to_string(i), 1'000'000);
    for (const char *file : {"/r/a/b/d/file", "/r/a/b/e/file", "/r/d/file", "/r/e/file"})
        files.addFile(file, 1);
    files.addFile("/r/a/b/f/file", 0);
    const auto root = scan();
    EXPECT_EQ(at(root, "a/b/c")->children.capacity(), 5U);
    EXPECT_EQ(at(root, "a/b")->children.capacity(), 3U);
    EXPECT_EQ(root->children.capacity(), 3U);
}

TEST_F(ScannerTest, FoldersCarryTheirOwnDateAndTheRootNone)
{
    files.addFolder("/r", seconds(1));
    files.addFolder("/r/a", seconds(2));
    files.addFolder("/r/a/b", seconds(3));
    files.addFolder("/r/a/b/c", seconds(4));
    files.addFile("/r/a/b/c/file", 10);
    const auto root = scan();
    EXPECT_EQ(root->modified, distantPast);
    EXPECT_EQ(at(root, "a")->modified, seconds(2));
    EXPECT_EQ(at(root, "a/b")->modified, seconds(3));
    EXPECT_EQ(at(root, "a/b/c")->modified, seconds(4));
}

TEST_F(ScannerTest, APackageIsWalkedLikeAFolder)
{
    files.addFile("/r/Some.app/Contents/MacOS/Some", 4'000'000);
    files.addFile("/r/a/b/c/Other.app/Contents/small", 10);
    const auto root = scan();
    const auto package = at(root, "Some.app");
    EXPECT_EQ(package->kind, FileNode::Kind::package);
    EXPECT_EQ(package->size, 4'000'000);
    EXPECT_EQ(package->fileCount, 1);
    EXPECT_EQ(at(root, "Some.app/Contents")->kind, FileNode::Kind::directory);
    EXPECT_EQ(at(root, "Some.app/Contents/MacOS/Some")->kind, FileNode::Kind::file);
    EXPECT_EQ(at(root, "a/b/c/Other.app")->kind, FileNode::Kind::package);
}

TEST_F(ScannerTest, TheRootIsAPackageWhenItsFactsSaySo)
{
    files.addFolder("/r/Some.app");
    files.addLink("/r/link", "/r/Some.app");
    files.addLink("/r/Link.app", "/r");
    EXPECT_EQ(scan("/r/Some.app")->kind, FileNode::Kind::package);
    EXPECT_EQ(scan("/r")->kind, FileNode::Kind::directory);
    EXPECT_EQ(scan("/r/link")->kind, FileNode::Kind::package);
    EXPECT_EQ(scan("/r/Link.app")->kind, FileNode::Kind::directory);
    files.failFacts("/r/Some.app");
    EXPECT_EQ(scan("/r/Some.app")->kind, FileNode::Kind::directory);
}

TEST_F(ScannerTest, ARootThatIsALinkIsFollowed)
{
    files.addFile("/r/file", 2'000'000);
    files.addLink("/chosen", "/r");
    const auto root = scan("/chosen");
    EXPECT_EQ(root->name, "chosen");
    ASSERT_EQ(root->children.size(), 1U);
    EXPECT_EQ(root->children.front()->path(), "/chosen/file");
}

TEST_F(ScannerTest, WholeDiskNeverEntersOtherVolumesNorWhatIsNoDiskSpace)
{
    files.setSystemKind(SystemKind::mac);
    std::vector<std::string> skipped{"/System/Volumes", "/Volumes",        "/dev",  "/net",
                                     "/home",           "/private/var/vm", "/cores"};
    std::ranges::copy(systemVirtualFolders(), std::back_inserter(skipped));
    for (const std::string &folder : skipped)
        files.addFile(folder + "/inside/file", 5'000'000);
    const std::vector<std::string> entered{"/System/Library",  "/private/var/log", "/Users/me/dev", "/Users/me/Volumes",
                                           "/private/var/vm2", "/device",          "/System/net"};
    for (const std::string &folder : entered)
        files.addFile(folder + "/file", 1'000'000);

    const auto root = scan("/");
    EXPECT_EQ(root->name, "Macintosh HD");
    EXPECT_EQ(root->size, static_cast<std::int64_t>(entered.size()) * 1'000'000);
    for (const std::string &folder : skipped) {
        EXPECT_THAT(files.log()->linesStartingWith("openChild " + folder + "/"), IsEmpty());
        const auto opened = files.log()->linesStartingWith("openChild " + folder);
        EXPECT_EQ(std::ranges::count(opened, "openChild " + folder), 0) << folder;
    }
    for (const std::string &folder : entered)
        EXPECT_EQ(at(root, folder.substr(1))->path(), folder);
}

TEST_F(ScannerTest, FoldersThatCouldNotBeOpenedAreCounted)
{
    files.addFile("/r/open/file", 10);
    for (const char *folder : {"/r/a", "/r/b/a", "/r/b/c/a", "/r/b/c/d/a"}) {
        files.addFile(std::string(folder) + "/file", 2'000'000);
        files.failOpening(folder);
    }
    files.addFile("/r/b/listing/file", 1);
    files.failListing("/r/b/listing");
    files.addFile("/r/b/c/d/listing/file", 1);
    files.failListing("/r/b/c/d/listing");
    files.addFile("/r/gone/file", 1);
    files.makeVanish("/r/gone");
    EXPECT_EQ(scan()->size, 10);
    EXPECT_EQ(progress.counters().denied, 6);
    EXPECT_EQ(progress.failure(), std::nullopt);
}

TEST_F(ScannerTest, AnUnreadableRootIsNotOneOfTheFoldersInside)
{
    files.addFile("/r/file", 1);
    files.failOpening("/r");
    EXPECT_TRUE(scan()->unreadable);
    EXPECT_EQ(progress.counters().denied, 0);
}

TEST_F(ScannerTest, ASizeThatNoFileCanHaveCountsAsNone)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    files.addFile("/r/a", largest);
    files.addFile("/r/b", -5);
    files.addFile("/r/c", 2'000'000);
    files.addFile("/r/d/e/f/g", largest);
    const auto root = scan();
    EXPECT_EQ(root->size, 2'000'000);
    EXPECT_EQ(root->fileCount, 4);
    EXPECT_EQ(root->smallFilesCount, 2);
}

TEST_F(ScannerTest, AFolderWhoseFiguresCannotBeAddedUpCountsAsUnreadable)
{
    for (const char *folder : {"/r/a", "/r/b", "/r/c/c/c"}) {
        files.addFile(std::string(folder) + "/file", foreignSumLimit / 2);
        files.addFile(std::string(folder) + "/rest", foreignSumLimit / 4);
    }
    const auto root = scan();
    EXPECT_EQ(root->size, foreignSumLimit / 4 * 3);
    EXPECT_EQ(root->children.size(), 1U);
    EXPECT_EQ(progress.counters().denied, 2);
    EXPECT_EQ(progress.counters().bytes, root->size);
}

TEST(EndlessListing, NoticesAStop)
{
    ScanProgress progress;
    MadeUpFolder endless([&](std::uint64_t number) {
        if (number == 100'000)
            progress.cancel();
        return DirectoryEntry{.name = "file", .type = EntryType::file, .allocated = 4096};
    });
    const auto root = Scanner::scan("/endless", progress, endless);
    EXPECT_EQ(root->size, 0) << "what is not listed to its end is not counted";
    EXPECT_FALSE(root->unreadable);
}

TEST(EndlessListing, OfFoldersEndsAsUnreadable)
{
    std::uint64_t last = 0;
    MadeUpFolder endless([&](std::uint64_t number) {
        last = number;
        return DirectoryEntry{.name = "folder", .type = EntryType::directory};
    });
    ScanProgress progress;
    EXPECT_TRUE(Scanner::scan("/endless", progress, endless)->unreadable);
    EXPECT_EQ(last, Scanner::keptEntriesLimit);
    EXPECT_FALSE(progress.isCancelled());
}

TEST(ScannerFailure, WithoutAFileNumberLeftTheScanEndsWithAnError)
{
    const auto scanWithoutNumberFor = [](const std::string &folder) {
        FakeFileSystem files;
        files.addFile("/r/a/b/c/file", 10);
        files.failOpening(folder, std::errc::too_many_files_open);
        ScanProgress progress;
        (void)Scanner::scan("/r", progress, files);
        ASSERT_NE(progress.failure(), std::nullopt) << folder;
        EXPECT_EQ(progress.failure()->code, std::errc::too_many_files_open);
        EXPECT_EQ(progress.counters().denied, 0);
        EXPECT_FALSE(progress.isCancelled());
    };
    // Each scan waits a second for a descriptor; run them concurrently.
    std::vector<std::thread> scans;
    for (const char *folder : {"/r", "/r/a", "/r/a/b", "/r/a/b/c"})
        scans.emplace_back(scanWithoutNumberFor, folder);
    for (std::thread &scan : scans)
        scan.join();
}

TEST_F(ScannerTest, AFileWithASkippedFoldersNameIsCounted)
{
    files.setSystemKind(SystemKind::mac);
    files.addFile("/cores", 2'000'000);
    EXPECT_THAT(childrenOf(*scan("/")), ElementsAre(std::pair("cores", 2'000'000)));
}

TEST_F(ScannerTest, ASkippedFolderCanBeTheRoot)
{
    files.setSystemKind(SystemKind::mac);
    files.addFile("/Volumes/Disk/file", 2'000'000);
    EXPECT_EQ(scan("/Volumes")->size, 2'000'000);
    EXPECT_EQ(scan("/Volumes/Disk")->size, 2'000'000);
}

} // namespace
} // namespace corvane
