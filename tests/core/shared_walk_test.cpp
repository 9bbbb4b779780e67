#include "core/shared_walk.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <ostream>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "core/allocated_size.h"
#include "core/scanner.h"
#include "core/walk_pace.h"
#include "platform/fake_file_system.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

constexpr std::array<std::size_t, 5> threadCounts{1, 2, 3, 8, 32};
constexpr int rounds = 6;

/// Writes all facts of a tree, in its order.
void write(const FileNode &node, int depth, std::string &text)
{
    text += fmt::format("{} {} {} {} {} {} {} {} {}\n", depth, node.name, static_cast<int>(node.kind), node.size,
                        node.fileCount, node.smallFilesSize, node.smallFilesCount,
                        node.modified.time_since_epoch().count(), node.unreadable);
    for (const auto &child : node.children) {
        EXPECT_EQ(child->parent.lock().get(), &node);
        write(*child, depth + 1, text);
    }
}

struct Scanned {
    std::string tree;
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    std::int64_t denied = 0;

    friend bool operator==(const Scanned &, const Scanned &) = default;
};

Scanned scan(FileSystem &files, std::size_t threads)
{
    const FixedWalkThreads fixed(threads);
    ScanProgress progress;
    const auto root = Scanner::scan("/r", progress, files);
    const ScanProgress::Counters counters = progress.counters();
    Scanned scanned{{}, counters.files, counters.bytes, counters.denied};
    write(*root, 0, scanned.tree);
    return scanned;
}

using Make = std::function<void(FakeFileSystem &, std::mt19937 &)>;

void addFiles(FakeFileSystem &files, const std::string &folder, std::mt19937 &dice)
{
    for (unsigned i = 0, count = dice() % 4; i < count; ++i)
        files.addFile(fmt::format("{}/f{}", folder, i), dice() % 5 == 0 ? 1'500'000 : dice() % 9'000,
                      Time(std::chrono::seconds(dice() % 1'000)));
}

/// Adds folders below parents chosen among the existing ones, so that some have many children.
std::vector<std::string> addFolders(FakeFileSystem &files, const std::string &top, std::size_t count,
                                    std::size_t recent, std::mt19937 &dice)
{
    std::vector<std::string> folders{top};
    files.addFolder(top);
    while (folders.size() < count) {
        // Choosing among the last few gives a deep tree; choosing among all, a wide one.
        const std::size_t from = folders.size() > recent ? folders.size() - recent : 0;
        folders.push_back(fmt::format("{}/d{}", folders[from + dice() % (folders.size() - from)], folders.size()));
        files.addFolder(folders.back(), Time(std::chrono::seconds(dice() % 1'000)));
        addFiles(files, folders.back(), dice);
    }
    return folders;
}

struct Shape {
    const char *name;
    Make make;

    friend void PrintTo(const Shape &shape, std::ostream *out) { *out << shape.name; } // NOLINT: the library's name
};

const std::array<Shape, 6> shapes{{
    {"Wide",
     [](FakeFileSystem &files, std::mt19937 &dice) {
         for (int top = 0; top < 20; ++top)
             addFolders(files, fmt::format("/r/t{}", top), 20, 1'000, dice);
     }},
    {"Uneven",
     [](FakeFileSystem &files, std::mt19937 &dice) {
         addFolders(files, "/r/a/one", 500, 1'000, dice);
         addFolders(files, "/r/b", 20, 1'000, dice);
     }},
    {"Deep", [](FakeFileSystem &files, std::mt19937 &dice) { addFolders(files, "/r/chain/of/folders", 400, 3, dice); }},
    {"Flat",
     [](FakeFileSystem &files, std::mt19937 &dice) {
         for (int i = 0; i < 400; ++i) {
             const std::string folder = fmt::format("/r/a/b/{}", i);
             files.addFolder(folder);
             addFiles(files, folder, dice);
         }
     }},
    {"Tiny", [](FakeFileSystem &files, std::mt19937 &dice) { addFolders(files, "/r/a/b", 3, 1'000, dice); }},
    {"Hostile",
     [](FakeFileSystem &files, std::mt19937 &dice) {
         const std::vector<std::string> folders = addFolders(files, "/r/a/b/c", 400, 40, dice);
         for (std::size_t i = 10; i < folders.size(); i += 14)
             files.addFile(folders[i] + (dice() % 2 == 0 ? "/huge" : "/less"),
                           dice() % 2 == 0 ? std::int64_t{1} << 60 : -1);
         for (std::size_t i = 13; i < folders.size(); i += 7) {
             switch (dice() % 3) {
             case 0:
                 files.failOpening(folders[i]);
                 break;
             case 1:
                 files.failListing(folders[i], std::errc::io_error, 1);
                 break;
             default:
                 files.failFacts(folders[i]);
             }
         }
     }},
}};

class SharedWalkTest : public testing::TestWithParam<Shape> {
protected:
    SharedWalkTest()
    {
        std::mt19937 dice(std::hash<std::string_view>{}(GetParam().name));
        GetParam().make(files, dice);
    }

    FakeFileSystem files;
};

TEST_P(SharedWalkTest, AnyNumberOfThreadsGivesTheSameTree)
{
    const Scanned one = scan(files, 1);
    ASSERT_GT(std::ranges::count(one.tree, '\n'), 1);
    for (int round = 0; round < rounds; ++round) {
        for (const std::size_t threads : threadCounts)
            ASSERT_TRUE(scan(files, threads) == one) << threads << " threads, round " << round;
    }
}

TEST_P(SharedWalkTest, AnyNumberOfThreadsMeasuresTheSame)
{
    const auto measured = [this](std::size_t threads) {
        const FixedWalkThreads fixed(threads);
        return allocatedSize("/r", files);
    };
    const std::int64_t one = measured(1);
    ASSERT_GT(one, 0);
    for (int round = 0; round < rounds; ++round) {
        for (const std::size_t threads : threadCounts)
            ASSERT_EQ(measured(threads), one) << threads << " threads, round " << round;
    }
}

/// Expects every folder's size to be the sum of its contents.
void expectRightSums(const FileNode &node)
{
    if (node.kind == FileNode::Kind::file)
        return;
    std::int64_t size = node.smallFilesSize;
    for (const auto &child : node.children) {
        size += child->size;
        expectRightSums(*child);
    }
    ASSERT_EQ(node.size, size) << node.path();
}

TEST_P(SharedWalkTest, StoppedAnywhereItEndsWithARightTree)
{
    std::mt19937 dice(7);
    for (int round = 0; round < 8 * rounds; ++round) {
        const FixedWalkThreads fixed(threadCounts[static_cast<std::size_t>(round) % threadCounts.size()]);
        ScanProgress progress;
        std::thread stopper([&progress, pause = std::chrono::microseconds(dice() % 3'000)] {
            std::this_thread::sleep_for(pause);
            progress.cancel();
        });
        const auto root = Scanner::scan("/r", progress, files);
        stopper.join();
        ASSERT_NO_FATAL_FAILURE(expectRightSums(*root));
        EXPECT_EQ(progress.counters().bytes, root->size);
    }
}

INSTANTIATE_TEST_SUITE_P(Trees, SharedWalkTest, testing::ValuesIn(shapes),
                         [](const auto &parameter) { return std::string(parameter.param.name); });

TEST(SharedWalk, RealFoldersFarBelowTheTopAreMeasuredTheSame)
{
    // Deeper than the number of folders a walk keeps open, so that folders are closed and reopened while others walk in
    // them.
    const TemporaryFolder folder;
    std::string path = "top";
    for (int level = 0; level < 40; ++level) {
        for (int i = 0; i < 12; ++i)
            folder.writeText(fmt::format("{}/{}/file", path, i), "x");
        path += "/deeper";
    }
    const auto measured = [&](std::size_t threads) {
        const FixedWalkThreads fixed(threads);
        return allocatedSize(folder / "top");
    };
    const std::int64_t one = measured(1);
    ASSERT_GT(one, 0);
    for (int round = 0; round < rounds; ++round)
        EXPECT_EQ(measured(8), one);
}

/// Counts the folders and the threads that visit them. Each visit takes some time.
class Meeting : public SharedWalk::Visitor {
public:
    struct Listed : ListedFolder {
        std::vector<std::string> names;
        [[nodiscard]] std::size_t subfolderCount() const override { return names.size(); }
        [[nodiscard]] const std::string &subfolderName(std::size_t place) const override { return names[place]; }
    };

    static std::unique_ptr<Listed> list(OpenFolder &folder)
    {
        auto listed = std::make_unique<Listed>();
        static_cast<void>(folder.list([&](const DirectoryEntry &entry) { listed->names.emplace_back(entry.name); }));
        return listed;
    }

    std::unique_ptr<ListedFolder> enter(ListedFolder &, std::size_t, OpenFolder &folder,
                                        const std::string &path) override
    {
        {
            const std::scoped_lock lock(m_lock);
            m_mostAtOnce = std::max(m_mostAtOnce, ++m_atOnce);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(m_pause));
        {
            const std::scoped_lock lock(m_lock);
            --m_atOnce;
            m_threads.insert(std::this_thread::get_id());
            ++m_entered[path];
        }
        auto listed = list(folder);
        return listed->names.empty() ? nullptr : std::move(listed);
    }
    void notOpened(const Error &) override { ADD_FAILURE(); }
    void finish(ListedFolder &) override { ++m_finished; }
    void lost(const Error &) override { ADD_FAILURE(); }
    bool shouldStop() const override { return false; }

    int m_pause = 0;
    std::set<std::thread::id> m_threads;
    int m_mostAtOnce = 0; ///< threads
    std::map<std::string, int> m_entered;
    std::atomic<int> m_finished = 0;

private:
    std::mutex m_lock;
    int m_atOnce = 0;
};

TEST(SharedWalk, ThreadsThatHaveNothingToDoTakeSubfoldersFromFarBelowTheTop)
{
    FakeFileSystem files;
    const std::string chain = "/top/1/2/3/4/5/6/7/8/9";
    for (int i = 0; i < 600; ++i)
        files.addFolder(fmt::format("{}/{}", chain, i));
    const FixedWalkThreads fixed(4);
    Meeting meeting;
    meeting.m_pause = 1;
    auto top = *files.openFolder("/top");
    auto listed = Meeting::list(*top);
    SharedWalk(meeting).walk(std::move(listed), std::move(top), "/top");
    // Another thread may have joined after one left.
    EXPECT_EQ(meeting.m_mostAtOnce, 4);
    EXPECT_EQ(meeting.m_entered.size(), 609U);
    EXPECT_TRUE(std::ranges::all_of(meeting.m_entered, [](const auto &entered) { return entered.second == 1; }));
    EXPECT_EQ(meeting.m_finished, 10) << "every folder with subfolders, once";
}

TEST(SharedWalk, AWalkOfFewFoldersStaysOnOneThread)
{
    FakeFileSystem files;
    for (int i = 0; i < 7; ++i)
        files.addFolder(fmt::format("/top/{}", i));
    const FixedWalkThreads fixed(4);
    Meeting meeting;
    auto top = *files.openFolder("/top");
    auto listed = Meeting::list(*top);
    SharedWalk(meeting).walk(std::move(listed), std::move(top), "/top");
    EXPECT_EQ(meeting.m_threads, std::set{std::this_thread::get_id()});
}

} // namespace
} // namespace corvane
