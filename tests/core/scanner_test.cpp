#include "core/scanner.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <iterator>
#include <limits>
#include <mutex>
#include <thread>

#include <gmock/gmock.h>

#include "core/foreign_sum.h"
#include "core/walk_pace.h"
#include "platform/fake_file_system.h"
#include "platform/made_up_folder.h"
#include "platform/protected_places.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// Names and sizes of a folder's children, in their order.
std::vector<std::pair<std::string, std::int64_t>> childrenOf(const FileNode &node)
{
    std::vector<std::pair<std::string, std::int64_t>> children;
    for (const auto &child : node.children)
        children.emplace_back(child->name, child->size);
    return children;
}

/// The node at a path relative to the root ("a/b"); fails the test if there is none.
std::shared_ptr<FileNode> at(const std::shared_ptr<FileNode> &root, std::string_view relative)
{
    std::shared_ptr<FileNode> node = root;
    while (!relative.empty()) {
        const std::size_t slash = std::min(relative.find('/'), relative.size());
        const auto found = std::ranges::find(node->children, relative.substr(0, slash),
                                             [](const auto &child) { return std::string_view(child->name); });
        if (found == node->children.end())
            throw std::logic_error("The tree has no " + std::string(relative));
        node = *found;
        relative.remove_prefix(std::min(slash + 1, relative.size()));
    }
    return node;
}

Time seconds(std::int64_t since1970)
{
    return Time(std::chrono::seconds(since1970));
}

/// A barrier between threads: a wait ends when other threads have called `arrive` often enough.
class Meeting {
public:
    void arrive()
    {
        const std::scoped_lock lock(m_lock);
        ++m_arrived;
        m_changed.notify_all();
    }
    bool arriveAndWait(int count, std::chrono::milliseconds limit = 20s)
    {
        arrive();
        std::unique_lock lock(m_lock);
        return m_changed.wait_for(lock, limit, [&] { return m_arrived >= count; });
    }

private:
    std::mutex m_lock;
    std::condition_variable m_changed;
    int m_arrived = 0;
};

class ScannerTest : public testing::Test {
protected:
    std::shared_ptr<FileNode> scan(const std::string &path = "/r")
    {
        std::shared_ptr<FileNode> root = Scanner::scan(path, progress, files);
        EXPECT_TRUE(verify(*root));
        return root;
    }

    FakeFileSystem files;
    ScanProgress progress;
};

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

TEST_F(ScannerTest, EveryFolderIsOpenedAndListedOnceAndNothingIsAskedByPath)
{
    for (const char *path : {"/r/a/b/c/d/1", "/r/a/b/e/2", "/r/f/3", "/r/4", "/r/f/g/5"})
        files.addFile(path, 1'000'000);
    scan();
    const auto lines = files.log()->lines();
    EXPECT_THAT(lines, testing::UnorderedElementsAre("realPath /r", "facts /r", "openFolder /r", "list /r",
                                                     "openChild /r/a", "list /r/a", "openChild /r/a/b", "list /r/a/b",
                                                     "openChild /r/a/b/c", "list /r/a/b/c", "openChild /r/a/b/c/d",
                                                     "list /r/a/b/c/d", "openChild /r/a/b/e", "list /r/a/b/e",
                                                     "openChild /r/f", "list /r/f", "openChild /r/f/g", "list /r/f/g"));
}

TEST_F(ScannerTest, ProgressCountsOnceForEachFolderAndNamesItsPath)
{
    files.addFile("/r/1", 10);
    files.addFile("/r/a/2", 2'000'000);
    files.addFile("/r/a/b/c/3", 30);
    files.addFile("/r/a/b/c/4", 40);
    std::vector<std::string> seen;
    files.log()->observe([&](const std::string &line) {
        if (!line.starts_with("openChild"))
            return;
        const ScanProgress::Counters counters = progress.counters();
        seen.push_back(counters.current + " " + std::to_string(counters.files) + " " + std::to_string(counters.bytes));
    });
    scan();
    EXPECT_THAT(seen, ElementsAre("/r 1 10", "/r/a 2 2000010", "/r/a/b 2 2000010"));
    const ScanProgress::Counters counters = progress.counters();
    EXPECT_EQ(counters.files, 4);
    EXPECT_EQ(counters.bytes, 2'000'080);
    EXPECT_EQ(counters.current, "/r/a/b/c");
}

TEST_F(ScannerTest, ProgressNamesEveryFolderOnTheWayDownAndUp)
{
    // A single chain at the top, so that one thread walks all of it.
    for (const char *path : {"/r/a/b/c/d/1", "/r/a/b/c/e/2", "/r/a/b/f/g/3", "/r/a/b/h/4", "/r/a/b/i/5"})
        files.addFile(path, 1);
    std::vector<std::string> seen;
    files.log()->observe([&](const std::string &line) {
        if (line.starts_with("openChild"))
            seen.push_back(progress.counters().current);
    });
    scan();
    seen.push_back(progress.counters().current);
    EXPECT_THAT(seen, ElementsAre("/r", "/r/a", "/r/a/b", "/r/a/b/c", "/r/a/b/c/d", "/r/a/b/c/e", "/r/a/b/f",
                                  "/r/a/b/f/g", "/r/a/b/h", "/r/a/b/i"));
}

TEST_F(ScannerTest, FoldersOfTheFirstTwoLevelsAreWalkedAtOnce)
{
    if (std::thread::hardware_concurrency() < 2)
        GTEST_SKIP() << "needs two cores";
    files.addFile("/r/a/file", 1);
    files.addFile("/r/b/file", 1);
    files.addFile("/only/child/a/file", 1);
    files.addFile("/only/child/b/file", 1);
    Meeting levelOne;
    Meeting levelTwo;
    files.log()->observe([&](const std::string &line) {
        if (line == "list /r/a" || line == "list /r/b") {
            EXPECT_TRUE(levelOne.arriveAndWait(2));
        } else if (line == "list /only/child/a" || line == "list /only/child/b") {
            EXPECT_TRUE(levelTwo.arriveAndWait(2));
        }
    });
    EXPECT_EQ(scan("/r")->size, 2);
    EXPECT_EQ(scan("/only")->size, 2);
}

TEST_F(ScannerTest, BelowTheSecondLevelAThreadWalksDepthFirstInListingOrder)
{
    const FixedWalkThreads alone(1);
    for (const char *path : {"/r/a/top/z/1", "/r/a/top/z/y/2", "/r/a/top/b/3", "/r/a/top/m/4", "/r/a/top/m/k/5"})
        files.addFile(path, 1);
    std::vector<std::string> listed;
    std::mutex lock;
    std::vector<std::thread::id> threads;
    files.log()->observe([&](const std::string &line) {
        if (!line.starts_with("list /r/a/top"))
            return;
        const std::scoped_lock guard(lock);
        listed.push_back(line.substr(line.rfind('/') + 1));
        threads.push_back(std::this_thread::get_id());
    });
    scan();
    EXPECT_THAT(listed, ElementsAre("top", "z", "y", "b", "m", "k"));
    EXPECT_EQ(std::ranges::count(threads, threads.front()), 6);
}

TEST_F(ScannerTest, CancelledBeforeItStartsTouchesNothing)
{
    files.addFile("/r/file", 2'000'000);
    progress.cancel();
    const auto root = scan();
    EXPECT_EQ(root->size, 0);
    EXPECT_FALSE(root->unreadable);
    EXPECT_THAT(root->children, IsEmpty());
    EXPECT_THAT(files.log()->linesStartingWith("openFolder"), IsEmpty());
}

TEST_F(ScannerTest, CancelledWalkHasRightSizesForWhatWasWalkedAndDropsTheRest)
{
    // A single chain makes the order deterministic: items before "m" have been walked when it cancels.
    files.addFile("/r/a/b/file", 1'000'000);
    files.addFile("/r/a/b/early/file", 2'000'000);
    files.addFile("/r/a/b/m/file", 4'000'000);
    files.addFile("/r/a/b/m/inside/file", 8'000'000);
    files.addFile("/r/a/b/z/file", 16'000'000);
    files.log()->observe([&](const std::string &line) {
        if (line == "list /r/a/b/m")
            progress.cancel();
    });
    const auto root = scan();
    EXPECT_EQ(root->size, 7'000'000); // the folder being listed is still counted
    EXPECT_THAT(childrenOf(*at(root, "a/b")),
                ElementsAre(std::pair("m", 4'000'000), std::pair("early", 2'000'000), std::pair("file", 1'000'000)));
    EXPECT_THAT(files.log()->linesStartingWith("openChild /r/a/b/m/"), IsEmpty());
    EXPECT_THAT(files.log()->linesStartingWith("openChild /r/a/b/z"), IsEmpty());
    EXPECT_EQ(progress.counters().bytes, root->size);
}

TEST_F(ScannerTest, CancellingStopsTheParallelLevelsToo)
{
    for (int i = 0; i < 100; ++i)
        files.addFile("/r/folder" + std::to_string(i) + "/file", 10);
    std::atomic<int> listed = 0;
    files.log()->observe([&](const std::string &line) {
        if (line.starts_with("list /r/folder") && ++listed == 1)
            progress.cancel();
    });
    const auto root = scan();
    EXPECT_LE(listed, static_cast<int>(std::thread::hardware_concurrency()) + 1); // one listing in progress per thread
    EXPECT_EQ(root->size, listed * 10);
    EXPECT_EQ(root->children.size(), static_cast<std::size_t>(listed));
}

class DeepScannerTest : public ScannerTest {
protected:
    static constexpr int levels = 60; // more than a walk keeps open

    DeepScannerTest()
    {
        std::string path = "/r";
        for (int level = 0; level < levels; ++level) {
            files.addFile(path + "/deeper/before/file", 1);
            path += "/deeper";
            paths.push_back(path);
        }
        for (const std::string &folder : paths)
            files.addFile(folder + "/after/file", 1); // listed last, so walked on the way back up
    }

    std::vector<std::string> paths;
};

TEST_F(DeepScannerTest, FoldersClosedOnTheWayDownAreReopenedOnTheWayUp)
{
    const auto root = scan();
    EXPECT_EQ(root->size, 2 * levels);
    EXPECT_THAT(files.log()->linesStartingWith("openParent"), testing::Not(IsEmpty()));
    EXPECT_EQ(files.log()->linesStartingWith("openFolder").size(), 1U);
    EXPECT_EQ(files.log()->linesStartingWith("list ").size(), 1U + 3U * levels);
}

TEST_F(DeepScannerTest, AFolderMovedAwayMeanwhileLosesWhatHadNotBeenWalkedAboveIt)
{
    const FixedWalkThreads alone(1);
    // While the walk is at the bottom, a folder far above is moved: ".." from there would lead to an unrelated folder.
    const std::string moved = paths[20];
    bool done = false;
    files.addFile("/stranger/after/file", 1'000'000'000);
    files.log()->observe([&](const std::string &line) {
        if (line == "list " + paths.back() && !std::exchange(done, true))
            files.move(moved, "/stranger/deeper");
    });
    const auto root = scan();
    ASSERT_TRUE(done);
    // Everything from paths[20] down was walked; above it, in the subtree that one thread walks, only earlier siblings.
    // The folder whose subfolders are walked in parallel stays open throughout.
    EXPECT_EQ(root->size, levels + (levels - 20) + 1);
    EXPECT_THAT(files.log()->linesStartingWith("list /stranger/after"), IsEmpty());
}

TEST_F(DeepScannerTest, AParentThatCannotBeOpenedAgainIsLostToo)
{
    const FixedWalkThreads alone(1);
    const std::string closed = paths[19]; // the first of the missing parents
    bool done = false;
    files.log()->observe([&](const std::string &line) {
        if (line == "list " + paths.back() && !std::exchange(done, true))
            files.failOpening(closed);
    });
    const auto root = scan();
    EXPECT_EQ(root->size, levels + (levels - 20) + 1);
}

} // namespace
} // namespace corvane
