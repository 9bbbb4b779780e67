#include "core/scanner.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include "cleanup/dev_junk_rule.h"
#include "core/scan_summary.h"
#include "platform/fake_file_system.h"
#include "support/few_open_files.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::IsEmpty;

std::shared_ptr<FileNode> childNamed(const FileNode &folder, std::string_view name)
{
    const auto found =
        std::ranges::find(folder.children, name, [](const auto &child) { return std::string_view(child->name); });
    return found == folder.children.end() ? nullptr : *found;
}

/// The scanner over the real file system.
class ScannerFoldersTest : public testing::Test {
protected:
    std::shared_ptr<FileNode> scan(const std::string &path)
    {
        std::shared_ptr<FileNode> root = Scanner::scan(path, progress);
        EXPECT_TRUE(verify(*root));
        EXPECT_EQ(progress.counters().bytes, root->size);
        EXPECT_EQ(progress.counters().files, root->fileCount);
        return root;
    }
    std::shared_ptr<FileNode> scan() { return scan(temporary.path()); }

    TemporaryFolder temporary;
    ScanProgress progress;
};

/// The expected figures of a tree, computed independently.
struct Figures {
    std::int64_t size = 0;
    std::int64_t fileCount = 0;
    std::int64_t smallFilesSize = 0;
    std::int64_t smallFilesCount = 0;

    friend bool operator==(const Figures &, const Figures &) = default;
};

/// Computes these for every folder and large file below `path`, keyed by path.
Figures measure(const std::filesystem::path &path, std::map<std::string, Figures> &found)
{
    Figures folder;
    for (const auto &entry : std::filesystem::directory_iterator(path)) {
        struct stat facts {};
        EXPECT_EQ(::lstat(entry.path().c_str(), &facts), 0);
        if (S_ISLNK(facts.st_mode))
            continue;
        Figures item;
        if (S_ISDIR(facts.st_mode)) {
            item = measure(entry.path(), found);
        } else {
            item = {.size = facts.st_blocks * 512, .fileCount = 1, .smallFilesSize = 0, .smallFilesCount = 0};
            if (item.size >= 1'000'000) {
                found[entry.path()] = item;
            } else {
                folder.smallFilesSize += item.size;
                ++folder.smallFilesCount;
            }
        }
        folder.size += item.size;
        folder.fileCount += item.fileCount;
    }
    if (folder.size > 0)
        found[path] = folder;
    return folder;
}

void collect(const FileNode &node, std::map<std::string, Figures> &found)
{
    found[node.path()] = {node.size, node.fileCount, node.smallFilesSize, node.smallFilesCount};
    for (const auto &child : node.children)
        collect(*child, found);
}

TEST_F(ScannerFoldersTest, ATreeOfManyKindsIsMeasuredRight)
{
    std::mt19937 random(7);
    std::vector<std::string> folders{"."};
    for (int i = 0; i < 300; ++i) {
        const std::string name = folders[random() % folders.size()] + "/" + std::to_string(i);
        switch (random() % 8) {
        case 0:
            temporary.writeFile(name, 1'000'000 + static_cast<std::int64_t>(random() % 100'000));
            break;
        case 1:
            temporary.writeSparse(name, 50'000'000);
            break;
        case 2:
            temporary.link(name, temporary.path());
            break;
        case 3:
            temporary.writeText(name, "");
            break;
        case 4:
            temporary.writeText(name, "some text");
            break;
        default:
            temporary.makeFolder(name);
            folders.push_back(name);
            break;
        }
    }
    std::map<std::string, Figures> expected;
    measure(temporary.path(), expected);
    std::map<std::string, Figures> found;
    collect(*scan(), found);
    EXPECT_GT(found.size(), 60U);
    EXPECT_EQ(found, expected);
}

TEST_F(ScannerFoldersTest, SizesNearestToOneMegabyteFallOnTheirSides)
{
    const std::int64_t block = temporary.blockSize();
    const std::int64_t above = (1'000'000 + block - 1) / block * block;
    temporary.writeFile("above", above);
    temporary.writeFile("below", above - block);
    const auto root = scan();
    ASSERT_EQ(root->children.size(), 1U);
    EXPECT_EQ(root->children.front()->name, "above");
    EXPECT_EQ(root->children.front()->size, temporary.allocated("above"));
    EXPECT_EQ(root->smallFilesSize, temporary.allocated("below"));
}

TEST_F(ScannerFoldersTest, SparseFileCountsWhatItOccupies)
{
    temporary.writeSparse("sparse", 10'000'000'000);
    const auto root = scan();
    EXPECT_EQ(root->size, 0);
    EXPECT_EQ(root->fileCount, 1);
    EXPECT_THAT(root->children, IsEmpty());
}

TEST_F(ScannerFoldersTest, SymbolicLinkToALargeFolderAddsNothing)
{
    const TemporaryFolder elsewhere;
    elsewhere.writeFile("large", 20'000'000);
    temporary.link("link", elsewhere.path());
    temporary.link("a/b/c/link", elsewhere.path());
    temporary.link("loop", ".");
    temporary.link("file link", elsewhere / "large");
    const auto root = scan();
    EXPECT_EQ(root->size, 0);
    EXPECT_EQ(root->fileCount, 0);
}

TEST_F(ScannerFoldersTest, AFileWithTwoNamesIsCountedTwice)
{
    temporary.writeFile("one", 1'500'000);
    temporary.hardLink("folder/two", "one");
    const auto root = scan();
    EXPECT_EQ(root->size, 2 * temporary.allocated("one"));
    EXPECT_EQ(root->fileCount, 2);
}

TEST_F(ScannerFoldersTest, HiddenFilesAreIncluded)
{
    temporary.writeFile(".hidden/.file", 2'000'000);
    const auto root = scan();
    ASSERT_NE(childNamed(*root, ".hidden"), nullptr);
    EXPECT_EQ(childNamed(*root, ".hidden")->children.front()->name, ".file");
}

TEST_F(ScannerFoldersTest, ARootThatIsALinkIsFollowed)
{
    temporary.writeFile("folder/file", 2'000'000);
    const auto root = scan(temporary.link("link", "folder"));
    EXPECT_EQ(root->name, "link");
    ASSERT_EQ(root->children.size(), 1U);
    EXPECT_EQ(root->children.front()->path(), temporary / "link/file");
}

TEST_F(ScannerFoldersTest, ARootThatIsNoFolderIsUnreadable)
{
    EXPECT_TRUE(scan(temporary.writeFile("file", 2'000'000))->unreadable);
    EXPECT_TRUE(scan(temporary / "missing")->unreadable);
}

TEST_F(ScannerFoldersTest, UnreadableFolderIsDropped)
{
    if (!TemporaryFolder::canMakeUnreadable())
        GTEST_SKIP() << "root reads every folder";
    temporary.writeFile("open/file", 2'000'000);
    temporary.writeFile("closed/file", 2'000'000);
    temporary.makeUnreadable("closed");
    temporary.writeFile("a/b/c/closed/file", 2'000'000);
    temporary.makeUnreadable("a/b/c/closed");
    const auto root = scan();
    EXPECT_EQ(root->size, temporary.allocated("open/file"));
    EXPECT_EQ(root->children.size(), 1U);
    ScanProgress own;
    EXPECT_TRUE(Scanner::scan(temporary / "closed", own)->unreadable);
}

TEST_F(ScannerFoldersTest, OddNamesComeThroughUnchanged)
{
    const std::vector<std::string> names{std::string(255, 'n'),
                                         "two\nlines",
                                         "\"quoted\" 'twice'",
                                         "\xF0\x9F\x98\x80\xE2\x80\x8D",
                                         "not \xff\xfe text",
                                         " ",
                                         "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
                                         "tab\tand\\backslash",
                                         "-rf",
                                         "..."};
    for (const std::string &name : names) {
        temporary.writeFile("files/" + name, 1'100'000);
        temporary.writeFile("a/b/" + name + "/" + name, 1'200'000);
    }
    const auto root = scan();
    const auto files = childNamed(*root, "files");
    const auto folders = childNamed(*childNamed(*root, "a"), "b");
    for (const std::string &name : names) {
        ASSERT_NE(childNamed(*files, name), nullptr) << name;
        EXPECT_EQ(childNamed(*files, name)->path(), temporary / ("files/" + name));
        ASSERT_NE(childNamed(*folders, name), nullptr) << name;
        EXPECT_EQ(childNamed(*childNamed(*folders, name), name)->size, temporary.allocated("a/b/" + name + "/" + name));
    }
    EXPECT_EQ(root->fileCount, static_cast<std::int64_t>(2 * names.size()));
}

/// A tree deeper than the system's maximum path length, with a sibling item on every hundredth level.
class DeepFolderTest : public ScannerFoldersTest {
protected:
    static constexpr int levels = 3'000;

    // Created once for all tests in a process, because none of them changes the folder.
    static void SetUpTestSuite();
    static void TearDownTestSuite() { deep.reset(); }
    static void expectIsWhole(const FileNode &root);

    static inline std::optional<TemporaryFolder> deep;
};

void DeepFolderTest::SetUpTestSuite()
{
    deep.emplace();
    int descriptor = ::open(deep->path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const auto writeBlock = [&](const char *name) {
        const int file = ::openat(descriptor, name, O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        EXPECT_EQ(::write(file, "x", 1), 1);
        ::close(file);
    };
    for (int level = 1; level <= levels; ++level) {
        ASSERT_EQ(::mkdirat(descriptor, "deep", 0700), 0);
        if (level % 100 == 0) {
            ASSERT_EQ(::mkdirat(descriptor, "side", 0700), 0);
            writeBlock("side/file");
        }
        const int next = ::openat(descriptor, "deep", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ASSERT_GE(next, 0);
        ::close(descriptor);
        descriptor = next;
    }
    writeBlock("file");
    ::close(descriptor);
}

void DeepFolderTest::expectIsWhole(const FileNode &root)
{
    EXPECT_EQ(root.fileCount, levels / 100 + 1);
    int depth = 0;
    std::shared_ptr<FileNode> node = childNamed(root, "deep");
    ASSERT_NE(node, nullptr);
    for (++depth; const auto next = childNamed(*node, "deep"); ++depth)
        node = next;
    EXPECT_EQ(depth, levels);
    EXPECT_EQ(node->smallFilesCount, 1);
    EXPECT_EQ(node->path().size(), deep->path().size() + 5UL * levels);
}

TEST_F(DeepFolderTest, IsWalkedWhole)
{
    expectIsWhole(*scan(deep->path()));
}

TEST_F(DeepFolderTest, IsWalkedWholeWhereFileNumbersAreScarce)
{
    (void)systemHost(); // raises the limit on first use
    std::shared_ptr<FileNode> root;
    {
        const FewOpenFiles limit(6);
        root = scan(deep->path());
    }
    expectIsWhole(*root);
}

TEST_F(DeepFolderTest, IsNotShownInPartWhereNoFileNumberIsLeft)
{
    (void)systemHost(); // raises the limit on first use
    {
        const FewOpenFiles limit(1);
        (void)Scanner::scan(deep->path(), progress);
    }
    ASSERT_NE(progress.failure(), std::nullopt);
    EXPECT_EQ(progress.failure()->code, std::errc::too_many_files_open);
}

TEST_F(DeepFolderTest, IsWalkedWholeOnAThreadWithASmallStack)
{
    pthread_attr_t attributes;
    ASSERT_EQ(::pthread_attr_init(&attributes), 0);
    ASSERT_EQ(::pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    struct Walk {
        const std::string path;
        ScanProgress progress;
        std::shared_ptr<FileNode> root;
    } walk{.path = deep->path(), .progress = {}, .root = nullptr};
    pthread_t thread{};
    const auto run = [](void *argument) -> void * {
        auto &own = *static_cast<Walk *>(argument);
        own.root = Scanner::scan(own.path, own.progress);
        return nullptr;
    };
    ASSERT_EQ(::pthread_create(&thread, &attributes, run, &walk), 0);
    ::pthread_join(thread, nullptr);
    ::pthread_attr_destroy(&attributes);
    expectIsWhole(*walk.root);
}

TEST_F(ScannerFoldersTest, ManyBranchesAreWalkedWholeWhereFileNumbersAreScarce)
{
    constexpr int branches = 8;
    for (int branch = 0; branch < branches; ++branch) {
        std::string path = std::to_string(branch % 2) + "/" + std::to_string(branch);
        for (int level = 0; level < 60; ++level) {
            path += "/a";
            temporary.writeText(path + "/file", "x");
        }
    }
    (void)systemHost(); // raises the limit on first use
    // The top of the walk needs three, and each branch at most two, plus one on the way up.
    const FewOpenFiles limit(3 + 3 * branches);
    EXPECT_EQ(scan()->fileCount, branches * 60);
}

TEST(ScannerAndSummary, AnUnreadableSubfolderIsGoneAndNotCountedButAnUnreadableRootIs)
{
    FakeFileSystem files;
    files.addFile("/data/open/file", 2'000'000);
    files.addFile("/data/closed/file", 2'000'000);
    files.addFile("/data/broken/file", 2'000'000);
    files.failOpening("/data/closed");
    files.failListing("/data/broken");

    ScanProgress progress;
    const auto root = Scanner::scan("/data", progress, files);
    ASSERT_EQ(root->children.size(), 1U);
    EXPECT_EQ(root->children.front()->name, "open");
    EXPECT_EQ(ScanSummary::make(root, DevJunkRule::match, files).unreadableCount, 0);

    for (const char *folder : {"/data/closed", "/data/broken"}) {
        ScanProgress own;
        EXPECT_EQ(ScanSummary::make(Scanner::scan(folder, own, files), DevJunkRule::match, files).unreadableCount, 1)
            << folder;
    }
}

TEST_F(ScannerFoldersTest, ThreeHundredThousandFilesInOneFolderAreCounted)
{
    // Hard links to a few files: ten times faster to create than files, and identical in a listing. File systems allow
    // some 65,000 links per item.
    constexpr int count = 300'000;
    constexpr int namesEach = 50'000;
    const std::string folder = temporary.makeFolder("a/b/full");
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    std::int64_t size = 0;
    for (int i = 0; i < count; ++i) {
        const std::string name = std::to_string(i);
        if (i % namesEach == 0) {
            temporary.writeText("a/b/full/" + name, "x");
            size += temporary.allocated("a/b/full/" + name) * namesEach;
        } else {
            const std::string existing = std::to_string(i / namesEach * namesEach);
            ASSERT_EQ(::linkat(descriptor, existing.c_str(), descriptor, name.c_str(), 0), 0);
        }
    }
    ::close(descriptor);
    const auto root = scan();
    EXPECT_EQ(root->fileCount, count);
    EXPECT_EQ(root->size, size);
    EXPECT_GT(size, 0);
}

TEST_F(ScannerFoldersTest, FilesAndFoldersThatComeAndGoMeanwhileAreNothingSpecial)
{
    for (int i = 0; i < 40; ++i) {
        temporary.writeText("keep/" + std::to_string(i) + "/a/b/file", "x");
        temporary.makeFolder("churn/" + std::to_string(i) + "/a");
    }
    std::atomic<bool> done = false;
    std::thread churn([&] {
        for (int i = 0; !done; i = (i + 1) % 40) {
            const std::string folder = temporary / ("churn/" + std::to_string(i) + "/a");
            const std::string inside = folder + "/inside";
            ::mkdir(inside.c_str(), 0700);
            const std::string file = inside + "/file";
            ::close(::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
            ::unlink(file.c_str());
            ::rmdir(inside.c_str());
        }
    });
    for (int round = 0; round < 50; ++round) {
        ScanProgress own;
        const auto root = Scanner::scan(temporary.path(), own);
        EXPECT_TRUE(verify(*root));
        EXPECT_EQ(childNamed(*root, "keep")->fileCount, 40);
    }
    done = true;
    churn.join();
}

TEST_F(ScannerFoldersTest, CancellingFromAnotherThreadEndsTheWalkWithARightTree)
{
    for (int i = 0; i < 600; ++i)
        temporary.writeText(std::to_string(i % 10) + "/" + std::to_string(i % 100) + "/" + std::to_string(i) + "/f",
                            "x");
    std::thread canceller([&] {
        while (progress.counters().files < 100)
            std::this_thread::yield();
        progress.cancel();
    });
    const auto root = scan();
    canceller.join();
    EXPECT_GE(root->fileCount, 100);
}

TEST_F(ScannerFoldersTest, TwoScansOfTheSameFolderGiveDifferentNodesOfTheSameFigures)
{
    temporary.writeFile("a/file", 2'000'000);
    std::map<std::string, Figures> first;
    std::map<std::string, Figures> second;
    const auto one = Scanner::scan(temporary.path(), progress);
    const auto two = Scanner::scan(temporary.path(), progress);
    collect(*one, first);
    collect(*two, second);
    EXPECT_EQ(first, second);
    EXPECT_NE(one, two);
}

} // namespace
} // namespace corvane
