#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <thread>

#include <gmock/gmock.h>

#include "core/scanner_fixture.h"
#include "core/walk_pace.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

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
