#include "core/stoppable_files.h"

#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include "core/scanner.h"
#include "platform/fake_host.h"
#include "platform/held_folder.h"
#include "support/hanging_mount.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;

constexpr uid_t nobody = 65534;

/// A network volume at "/Users/me/net" that responds until the test blocks it.
class StoppableFilesTest : public testing::Test {
protected:
    static constexpr auto moment = std::chrono::milliseconds(1);

    StoppableFilesTest()
    {
        files.setHome("/Users/me");
        files.setSystemKind(SystemKind::mac); // its scans enter mounted volumes
        files.addFile("/Users/me/own/a", 3'000'000);
        files.addFile("/Users/me/net/deep/b", 2'000'000);
        files.addFile("/Users/me/net/c", 1'000'000);
        files.addMount({.path = "/Users/me/net", .fileSystem = 2, .mayNotAnswer = true});
    }
    ~StoppableFilesTest() override
    {
        resume();
        while (Companion::leftCalls() > 0)
            std::this_thread::sleep_for(moment);
    }

    /// Blocks this call until `resume`.
    void stall(const std::string &call)
    {
        {
            const std::scoped_lock lock(m_lock);
            m_isResumed = false;
        }
        files.log()->observe([this, call](const std::string &made) {
            if (made != call)
                return;
            std::unique_lock lock(m_lock);
            ++stalled;
            m_resumed.wait(lock, [this] { return m_isResumed; });
            --stalled;
        });
    }
    void resume()
    {
        {
            const std::scoped_lock lock(m_lock);
            m_isResumed = true;
        }
        m_resumed.notify_all();
    }

    StoppableFiles stoppable(const std::string &root)
    {
        return {files, root, {.isOver = [this] { return stalled > 0; }}};
    }

    FakeFileSystem files;
    std::atomic<int> stalled = 0; // calls

private:
    std::mutex m_lock;
    std::condition_variable m_resumed;
    bool m_isResumed = false; // guarded by the lock
};

std::vector<std::string> namesIn(OpenFolder &folder)
{
    std::vector<std::string> names;
    EXPECT_TRUE(folder.list([&](const DirectoryEntry &entry) { names.emplace_back(entry.name); }));
    return names;
}

TEST_F(StoppableFilesTest, EveryQuestionThatHasNoAnswerIsGivenUp)
{
    for (const std::string call : {"facts", "exists", "canOpen", "realPath", "openFolder"}) {
        const std::string path = "/Users/me/net/deep";
        StoppableFiles asked = stoppable("/Users/me");
        stall(call + " " + path);
        const auto isGivenUp = [](const auto &answer) {
            return !answer && answer.error().code == std::errc::operation_canceled &&
                   answer.error().description() == "the disk is not responding";
        };
        const std::map<std::string, bool> givenUp{
            {"facts", call == "facts" && isGivenUp(asked.facts(path))},
            {"exists", call == "exists" && !asked.exists(path)},
            {"canOpen", call == "canOpen" && !asked.canOpen(path)},
            {"realPath", call == "realPath" && isGivenUp(asked.realPath(path))},
            {"openFolder", call == "openFolder" && isGivenUp(asked.openFolder(path))},
        };
        EXPECT_TRUE(givenUp.at(call)) << call;
        EXPECT_EQ(Companion::leftCalls(), 1u) << call;
        resume();
        while (Companion::leftCalls() > 0)
            std::this_thread::sleep_for(moment);
        // Later calls are answered again.
        EXPECT_TRUE(asked.exists("/Users/me/net/c")) << call;
    }
}

TEST_F(StoppableFilesTest, AFolderOnADiskOfThisComputerIsAskedByTheCallerItself)
{
    const std::thread::id caller = std::this_thread::get_id();
    StoppableFiles asked = stoppable("/Users/me");
    std::atomic<int> elsewhere = 0;
    files.log()->observe([&](const std::string &) { elsewhere += std::this_thread::get_id() != caller ? 1 : 0; });
    const auto home = asked.openFolder("/Users/me");
    ASSERT_TRUE(home);
    const auto own = (*home)->openChild("own");
    ASSERT_TRUE(own);
    EXPECT_THAT(namesIn(**own), ElementsAre("a"));
    EXPECT_TRUE(asked.exists("/Users/me/own/a"));
    EXPECT_EQ(elsewhere, 0);
    const auto net = (*home)->openChild("net");
    ASSERT_TRUE(net);
    EXPECT_EQ(elsewhere, 1);
    EXPECT_THAT(namesIn(**net), ElementsAre("deep", "c"));
    EXPECT_EQ(elsewhere, 2);
}

TEST_F(StoppableFilesTest, AListingComesWholeAndInOrderAndEndsWhereTheSinkSaysSo)
{
    std::vector<std::string> names;
    for (int i = 0; i < 10'000; ++i) {
        names.push_back(fmt::format("file {}", i));
        files.addFile("/Users/me/net/many/" + names.back(), i);
    }
    StoppableFiles asked = stoppable("/Users/me/net");
    const auto folder = asked.openFolder("/Users/me/net/many");
    ASSERT_TRUE(folder);
    EXPECT_EQ(namesIn(**folder), names);
    for (const int wanted : {1, 4'096, 4'097, 9'999}) {
        int taken = 0;
        const auto listed = (*folder)->list([&](const DirectoryEntry &entry) {
            EXPECT_EQ(entry.allocated, taken);
            return ++taken == wanted ? Listing::stop : Listing::goOn;
        });
        ASSERT_FALSE(listed) << wanted;
        EXPECT_EQ(listed.error().code, std::errc::operation_canceled) << wanted;
        EXPECT_EQ(taken, wanted);
    }
    files.failListing("/Users/me/net/many", std::errc::io_error, 5'000);
    int taken = 0;
    const auto listed = (*folder)->list([&](const DirectoryEntry &) { ++taken; });
    ASSERT_FALSE(listed);
    EXPECT_EQ(listed.error().code, std::errc::io_error);
    EXPECT_EQ(taken, 5'000);
}

TEST_F(StoppableFilesTest, AFolderThatIsOpenedAgainFromInsideIsStillOnTheWay)
{
    // Before it reaches the network volume, the walk below "first" goes deeper than the folders it keeps open.
    std::string path = "/Users/me/first";
    for (int level = 0; level < 40; ++level)
        path += "/deeper";
    files.addFile(path + "/file", 1'000'000);
    files.addFile("/Users/me/z/net/d", 4'000'000);
    files.addMount({.path = "/Users/me/z/net", .fileSystem = 3, .mayNotAnswer = true});
    stall("list /Users/me/z/net");
    ScanProgress progress;
    std::thread stopper([&] {
        while (stalled == 0)
            std::this_thread::sleep_for(moment);
        progress.cancel();
    });
    const auto root = Scanner::scan("/Users/me", progress, files);
    stopper.join();
    EXPECT_EQ(Companion::leftCalls(), 1u);
    EXPECT_GE(root->size, 1'000'000);
}

TEST_F(StoppableFilesTest, AScanStopsWhereAListingDoesNotReturnAndKeepsTheRest)
{
    files.addLink("/Users/link", "/Users/me");
    files.addLink("/Users/netlink", "/Users/me/net");
    for (const std::string root : {"/Users/me", "/Users/me/net", "/Users/link", "/Users/netlink"}) {
        stall("list /Users/me/net/deep");
        ScanProgress progress;
        std::string shown;
        std::thread stopper([&] {
            const std::string stuck = root.ends_with("link") ? "" : "/Users/me/net/deep";
            while (stalled == 0 || (shown = progress.counters().current, !shown.ends_with("/deep")))
                std::this_thread::sleep_for(moment);
            progress.cancel();
        });
        const auto tree = Scanner::scan(root, progress, files);
        stopper.join();
        EXPECT_TRUE(progress.isCancelled());
        EXPECT_TRUE(verify(*tree));
        EXPECT_EQ(tree->size, root.ends_with("net") || root.ends_with("netlink") ? 1'000'000 : 4'000'000) << root;
        EXPECT_EQ(progress.counters().denied, 0) << root;
        EXPECT_EQ(Companion::leftCalls(), 1u) << root;
        resume();
        while (Companion::leftCalls() > 0)
            std::this_thread::sleep_for(moment);
        files.log()->observe({});
    }
}

TEST_F(StoppableFilesTest, ATreeBehindANetworkIsTheSame)
{
    ScanProgress progress;
    const auto tree = Scanner::scan("/Users/me", progress, files);
    EXPECT_EQ(tree->size, 6'000'000);
    EXPECT_EQ(tree->fileCount, 3);
    EXPECT_EQ(progress.counters().denied, 0);
    EXPECT_TRUE(verify(*tree));
}

/// Ends the process with 0 if a long folder on a network disk is listed whole although no thread can be started.
[[noreturn]] void listWithoutThreads()
{
    constexpr int entries = 10'000;
    FakeFileSystem files;
    for (int i = 0; i < entries; ++i)
        files.addFile(fmt::format("/net/folder/{}", i), 1);
    files.addMount({.path = "/net", .fileSystem = 2, .mayNotAnswer = true});
    StoppableFiles stoppable(files, "/net", {.isOver = [] { return false; }});
    // The limit does not hold for the administrator.
    const rlimit none{0, 0};
    if (setrlimit(RLIMIT_NPROC, &none) != 0 || (geteuid() == 0 && setuid(nobody) != 0))
        std::_Exit(EXIT_FAILURE);
    bool canStart = true;
    try {
        std::thread([] {}).join();
    } catch (const std::system_error &) {
        canStart = false;
    }
    int listed = 0;
    const auto folder = stoppable.openFolder("/net/folder");
    if (folder) {
        (void)(*folder)->list([&](const DirectoryEntry &) {
            ++listed;
            return Listing::goOn;
        });
    }
    std::_Exit(!canStart && listed == entries ? EXIT_SUCCESS : EXIT_FAILURE);
}

TEST(StoppableFilesDeathTest, WithoutAThreadTheCallerListsItself)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(listWithoutThreads(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(StoppableScan, StopsWhileTheKernelWaitsForAFileSystemOfAProgram)
{
    const TemporaryFolder folder;
    const std::string point = folder.makeFolder("net");
    const HangingMount mount(point);
    if (!mount.isMounted())
        GTEST_SKIP() << "this process may not mount file systems of programs";
    ScanProgress progress;
    bool isShown = false;
    std::thread stopper([&] {
        for (int i = 0; i < 20'000 && !isShown; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            isShown = mount.isBeingListed() && progress.counters().current == point;
        }
        progress.cancel();
    });
    const auto tree = Scanner::scan(point, progress);
    stopper.join();
    EXPECT_TRUE(isShown);
    EXPECT_EQ(tree->size, 0);
    EXPECT_EQ(Companion::leftCalls(), 1u);
}

} // namespace
} // namespace corvane
