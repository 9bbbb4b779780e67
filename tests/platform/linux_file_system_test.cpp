#include "platform/linux/linux_file_system.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include "platform/held_folder.h"
#include "platform/path.h"
#include "platform/posix/interrupted_call.h"
#include "support/few_open_files.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;

/// A copy of an entry, valid after the listing.
struct Entry {
    EntryType type = EntryType::file;
    bool isPackage = false;
    std::int64_t allocated = 0;
    Time modified = distantPast;
};

std::map<std::string, Entry> entriesOf(OpenFolder &folder)
{
    std::map<std::string, Entry> entries;
    const Expected<void> listed = folder.list([&](const DirectoryEntry &entry) {
        const bool isNew = entries
                               .try_emplace(std::string(entry.name),
                                            Entry{entry.type, entry.isPackage, entry.allocated, entry.modified})
                               .second;
        EXPECT_TRUE(isNew) << entry.name;
    });
    EXPECT_TRUE(listed) << listed.error().description();
    return entries;
}

std::set<std::string> namesIn(OpenFolder &folder)
{
    std::set<std::string> names;
    for (const auto &[name, entry] : entriesOf(folder))
        names.insert(name);
    return names;
}

class LinuxFileSystemTest : public testing::Test {
protected:
    std::unique_ptr<OpenFolder> open(const std::string &path)
    {
        Expected<std::unique_ptr<OpenFolder>> folder = files.openFolder(path);
        if (!folder)
            throw std::system_error(folder.error().code, path);
        return std::move(*folder);
    }

    /// Deletes an item as a removal does: relative to its parent folder.
    Expected<void> remove(const std::string &path)
    {
        const std::string plain = path.substr(0, path.find_last_not_of('/') + 1);
        const Expected<std::unique_ptr<HeldFolder>> folder = files.holdFolder(std::string(containingFolder(plain)));
        if (!folder)
            return tl::unexpected(folder.error());
        const std::string name(lastPathComponent(plain));
        return (*folder)->facts(name).and_then(
            [&](const ItemFacts &facts) { return (*folder)->removeItem(name, facts.identity); });
    }

    /// Creates `levels` nested folders called `name`; returns the full path of the innermost.
    std::string makeDeep(const std::string &name, int levels)
    {
        std::string path = temporary.path();
        int descriptor = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
        for (int level = 0; level < levels; ++level) {
            if (::mkdirat(descriptor, name.c_str(), 0700) != 0)
                throw std::system_error(errno, std::generic_category(), "mkdirat");
            const int next = ::openat(descriptor, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
            ::close(descriptor);
            descriptor = next;
            path += "/" + name;
        }
        const int file = ::openat(descriptor, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        EXPECT_EQ(::write(file, "text", 4), 4);
        ::close(file);
        EXPECT_EQ(::symlinkat("file", descriptor, "link"), 0);
        ::close(descriptor);
        return path;
    }

    TemporaryFolder temporary;
    LinuxFileSystem files;
};

TEST(InterruptedCall, IsMadeAgainUntilItIsNotInterrupted)
{
    int calls = 0;
    const int result = uninterrupted([&] {
        errno = EINTR;
        return ++calls < 3 ? -1 : 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(uninterrupted([&] {
                  ++calls;
                  errno = EIO;
                  return -1;
              }),
              -1);
    EXPECT_EQ(calls, 4);
}

using LinuxOpenFolderTest = LinuxFileSystemTest;

TEST_F(LinuxOpenFolderTest, TellsFilesFoldersAndLinksApart)
{
    temporary.writeFile("file", 10);
    temporary.makeFolder("folder");
    temporary.link("link", "file");
    temporary.link("folder link", "folder");
    temporary.link("dangling", "nowhere");
    ASSERT_EQ(::mkfifo((temporary / "pipe").c_str(), 0600), 0);

    const auto entries = entriesOf(*open(temporary.path()));
    ASSERT_EQ(entries.size(), 6U);
    EXPECT_EQ(entries.at("file").type, EntryType::file);
    EXPECT_EQ(entries.at("folder").type, EntryType::directory);
    EXPECT_EQ(entries.at("link").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("folder link").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("dangling").type, EntryType::symbolicLink);
    EXPECT_EQ(entries.at("pipe").type, EntryType::file);
    EXPECT_EQ(entries.at("pipe").allocated, 0);
}

TEST_F(LinuxOpenFolderTest, SizesAreAllocatedBytesNeverLengths)
{
    temporary.writeFile("large", 3'000'000);
    temporary.writeSparse("sparse", 1'000'000'000);
    temporary.writeText("one byte", "x");
    temporary.writeText("empty", "");

    const auto entries = entriesOf(*open(temporary.path()));
    EXPECT_EQ(entries.at("large").allocated, temporary.allocated("large"));
    EXPECT_GE(entries.at("large").allocated, 3'000'000);
    EXPECT_EQ(entries.at("sparse").allocated, 0);
    EXPECT_EQ(entries.at("one byte").allocated, temporary.allocated("one byte"));
    EXPECT_EQ(entries.at("empty").allocated, 0);
}

TEST_F(LinuxOpenFolderTest, DatesAreWholeSecondsEvenBefore1970)
{
    temporary.writeText("file", "x");
    temporary.writeText("old", "x");
    temporary.makeFolder("folder");
    temporary.setModified("file", 1'700'000'000);
    temporary.setModified("old", -1'000);
    temporary.setModified("folder", 1'600'000'000);

    const auto folder = open(temporary.path());
    const auto entries = entriesOf(*folder);
    EXPECT_EQ(entries.at("file").modified, Time(std::chrono::seconds(1'700'000'000)));
    EXPECT_EQ(entries.at("old").modified, Time(std::chrono::seconds(-1'000)));
    EXPECT_EQ((*folder->openChild("folder"))->modified(), Time(std::chrono::seconds(1'600'000'000)));
}

TEST_F(LinuxOpenFolderTest, FoldersWithAKnownExtensionArePackages)
{
    for (const char *name : {"Some.app", "SOME.APP", "plain", "with.dot", ".app", "trailing."})
        temporary.makeFolder(name);
    temporary.writeText("file.app", "not a folder");

    const auto entries = entriesOf(*open(temporary.path()));
    EXPECT_TRUE(entries.at("Some.app").isPackage);
    EXPECT_TRUE(entries.at("SOME.APP").isPackage);
    EXPECT_FALSE(entries.at("plain").isPackage);
    EXPECT_FALSE(entries.at("with.dot").isPackage);
    EXPECT_FALSE(entries.at(".app").isPackage);
    EXPECT_FALSE(entries.at("trailing.").isPackage);
    EXPECT_FALSE(entries.at("file.app").isPackage);
}

TEST_F(LinuxOpenFolderTest, NamesAreBytes)
{
    const std::string longest(255, 'n');
    const std::set<std::string> names{
        longest, "two\nlines", "\"quoted\" 'twice'", "\xF0\x9F\x98\x80 emoji", "not \xff\xfe text", " ", "-rf", "..."};
    for (const std::string &name : names)
        temporary.writeText(name, "x");
    EXPECT_EQ(namesIn(*open(temporary.path())), names);
}

TEST_F(LinuxOpenFolderTest, AFolderLargerThanOneBufferIsListedWhole)
{
    constexpr int count = 5'000; // of 100-byte names: several buffers
    for (int i = 0; i < count; ++i)
        temporary.link(std::to_string(i) + std::string(100, 'x'), "nowhere");
    EXPECT_EQ(entriesOf(*open(temporary.path())).size(), std::size_t{count});
}

TEST_F(LinuxOpenFolderTest, ListingTwiceGivesTheSameTwice)
{
    temporary.writeText("a", "x");
    temporary.makeFolder("b");
    const auto folder = open(temporary.path());
    EXPECT_THAT(namesIn(*folder), ElementsAre("a", "b"));
    EXPECT_THAT(namesIn(*folder), ElementsAre("a", "b"));
}

TEST_F(LinuxOpenFolderTest, ASinkMayListAnotherFolder)
{
    for (int i = 0; i < 50; ++i)
        temporary.makeFolder("folder" + std::to_string(i) + "/inner" + std::to_string(i));
    const auto folder = open(temporary.path());
    std::set<std::string> found;
    ASSERT_TRUE(folder->list([&](const DirectoryEntry &entry) {
        const std::string name(entry.name);
        found.merge(namesIn(**folder->openChild(name)));
        EXPECT_EQ(entry.name, name);
    }));
    EXPECT_EQ(found.size(), 50U);
}

TEST_F(LinuxOpenFolderTest, AFileThatVanishesWhileListedIsLeftOut)
{
    // Enough that the first buffer contains names of files that are deleted before they are processed.
    for (int i = 0; i < 200; ++i)
        temporary.writeText("file" + std::to_string(i), "x");
    int delivered = 0;
    ASSERT_TRUE(open(temporary.path())->list([&](const DirectoryEntry &) {
        if (++delivered > 1)
            return;
        for (int i = 0; i < 200; ++i)
            ::unlink((temporary / ("file" + std::to_string(i))).c_str());
    }));
    EXPECT_EQ(delivered, 1);
}

TEST_F(LinuxOpenFolderTest, AFolderDeletedWhileOpenIsEmpty)
{
    const std::string path = temporary.makeFolder("gone");
    const auto folder = open(path);
    ASSERT_EQ(::rmdir(path.c_str()), 0);
    EXPECT_THAT(namesIn(*folder), testing::IsEmpty());
}

TEST_F(LinuxOpenFolderTest, AChildIsNeverOpenedThroughALink)
{
    temporary.makeFolder("folder");
    temporary.link("link", "folder");
    temporary.writeText("file", "x");
    const auto folder = open(temporary.path());
    EXPECT_TRUE(folder->openChild("folder"));
    EXPECT_FALSE(folder->openChild("link"));
    EXPECT_FALSE(folder->openChild("file"));
    const auto missing = folder->openChild("missing");
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(missing.error().operation, "open");
}

TEST_F(LinuxOpenFolderTest, TheParentIsWhereTheFolderNowLies)
{
    temporary.makeFolder("a/child");
    temporary.makeFolder("b");
    const auto a = open(temporary / "a");
    const auto b = open(temporary / "b");
    const auto child = open(temporary / "a/child");
    EXPECT_EQ((*child->openParent())->identity(), a->identity());
    ASSERT_EQ(::rename((temporary / "a/child").c_str(), (temporary / "b/child").c_str()), 0);
    EXPECT_EQ((*child->openParent())->identity(), b->identity());
    EXPECT_NE(a->identity(), b->identity());
}

TEST_F(LinuxOpenFolderTest, SeveralThreadsMayOpenChildrenAtOnce)
{
    for (int i = 0; i < 20; ++i)
        temporary.makeFolder("folder" + std::to_string(i));
    const auto folder = open(temporary.path());
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20; ++i)
                EXPECT_TRUE(folder->openChild("folder" + std::to_string(i)));
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

TEST_F(LinuxFileSystemTest, AFolderIsOpenedThroughALink)
{
    temporary.writeText("folder/inside", "x");
    temporary.link("link", "folder");
    EXPECT_THAT(namesIn(*open(temporary / "link")), ElementsAre("inside"));
    EXPECT_EQ(open(temporary / "link")->identity(), open(temporary / "folder")->identity());
}

TEST_F(LinuxFileSystemTest, WhatIsNotAFolderCannotBeOpenedAsOne)
{
    const std::string path = temporary.writeText("file", "x");
    const auto opened = files.openFolder(path);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().code, std::errc::not_a_directory);
    EXPECT_EQ(opened.error().path, path);
    EXPECT_FALSE(files.openFolder(temporary / "missing"));
}

TEST_F(LinuxFileSystemTest, FactsAreOfALinkItself)
{
    temporary.writeFile("target.bin", 2'000'000);
    temporary.setModified("target.bin", 1'500'000'000);
    temporary.link("link", "target.bin");
    temporary.makeFolder("Some.app/inside");
    temporary.link("Linked.app", "Some.app");

    const auto target = files.facts(temporary / "target.bin");
    ASSERT_TRUE(target);
    EXPECT_EQ(target->type, EntryType::file);
    EXPECT_EQ(target->allocated, temporary.allocated("target.bin"));
    EXPECT_EQ(target->modified, Time(std::chrono::seconds(1'500'000'000)));
    EXPECT_EQ(files.facts(temporary / "link")->type, EntryType::symbolicLink);
    EXPECT_LT(files.facts(temporary / "link")->allocated, 2'000'000);
    EXPECT_TRUE(files.facts(temporary / "Some.app")->isPackage);
    EXPECT_TRUE(files.facts(temporary / "Some.app/")->isPackage);
    EXPECT_EQ(files.facts(temporary / "Linked.app/")->type, EntryType::symbolicLink);
    EXPECT_FALSE(files.facts(temporary / "Linked.app")->isPackage);
    EXPECT_FALSE(files.facts(temporary / "Some.app/inside")->isPackage);
    EXPECT_EQ(files.facts("/")->type, EntryType::directory);
    EXPECT_EQ(files.facts(temporary / "missing").error().code, std::errc::no_such_file_or_directory);
}

TEST_F(LinuxFileSystemTest, ExistsAndCanOpenFollowLinks)
{
    temporary.writeText("file", "x");
    temporary.link("good", "file");
    temporary.link("dangling", "nowhere");
    EXPECT_TRUE(files.exists(temporary / "good"));
    EXPECT_FALSE(files.exists(temporary / "dangling"));
    EXPECT_TRUE(files.canOpen(temporary / "good"));
    EXPECT_TRUE(files.canOpen(temporary.path()));
    EXPECT_FALSE(files.canOpen(temporary / "dangling"));
}

TEST_F(LinuxFileSystemTest, OpeningAPipeDoesNotWait)
{
    ASSERT_EQ(::mkfifo((temporary / "pipe").c_str(), 0600), 0);
    EXPECT_TRUE(files.canOpen(temporary / "pipe"));
}

TEST_F(LinuxFileSystemTest, AFileIsReadThroughALinkAsLongAsItIsNotTooLarge)
{
    const std::string text(200'000, 'x');
    temporary.writeText("file", text);
    temporary.link("link", "file");
    EXPECT_EQ(files.readFile(temporary / "link", text.size()), text);
    EXPECT_EQ(files.readFile(temporary / "file", text.size() - 1).error().code, std::errc::file_too_large);
    temporary.writeText("empty", "");
    EXPECT_EQ(files.readFile(temporary / "empty", 0), "");
    EXPECT_TRUE(files.readFile(temporary / "gone", 10).error().isMissing());
}

TEST_F(LinuxFileSystemTest, AFileThatTellsNoSizeIsReadUpToTheLimit)
{
    const Expected<std::string> mounts = files.readFile("/proc/self/mounts", 10'000'000);
    ASSERT_TRUE(mounts);
    EXPECT_GT(mounts->size(), 10U);
    EXPECT_EQ(files.readFile("/proc/self/mounts", 10).error().code, std::errc::file_too_large);
}

TEST_F(LinuxFileSystemTest, ReadingWhatIsNoRegularFileFailsAtOnce)
{
    ASSERT_EQ(::mkfifo((temporary / "pipe").c_str(), 0600), 0);
    temporary.link("to pipe", "pipe");
    temporary.makeFolder("folder");
    for (const std::string &path :
         {temporary / "pipe", temporary / "to pipe", temporary / "folder", std::string("/dev/zero")})
        EXPECT_EQ(files.readFile(path, 10).error().code, std::errc::not_supported) << path;
}

TEST_F(LinuxFileSystemTest, AnUnreadableFolderCannotBeOpened)
{
    if (!TemporaryFolder::canMakeUnreadable())
        GTEST_SKIP() << "root reads every folder";
    const std::string path = temporary.makeUnreadable("closed");
    EXPECT_FALSE(files.canOpen(path));
    EXPECT_EQ(files.openFolder(path).error().code, std::errc::permission_denied);
}

TEST_F(LinuxFileSystemTest, RealPathResolvesEveryLink)
{
    temporary.writeText("a/b/file", "x");
    temporary.link("link", "a");
    temporary.link("a/again", "../link/b");
    EXPECT_EQ(files.realPath(temporary / "link/again/file"), temporary / "a/b/file");
    EXPECT_EQ(files.realPath(temporary / "a/./b/../b"), temporary / "a/b");
    EXPECT_EQ(files.realPath("/"), "/");
    EXPECT_FALSE(files.realPath(temporary / "missing"));
}

TEST_F(LinuxFileSystemTest, PathsLongerThanTheSystemAllowsWork)
{
    const std::string name(200, 'd');
    const std::string deepest = makeDeep(name, 60);
    ASSERT_GT(deepest.size(), 2UL * PATH_MAX);

    EXPECT_THAT(namesIn(*open(deepest)), ElementsAre("file", "link"));
    EXPECT_TRUE(files.exists(deepest + "/file"));
    EXPECT_FALSE(files.exists(deepest + "/missing"));
    EXPECT_TRUE(files.canOpen(deepest + "/link"));
    EXPECT_EQ(files.facts(deepest + "/link")->type, EntryType::symbolicLink);
    EXPECT_EQ(files.facts(deepest)->type, EntryType::directory);
    EXPECT_EQ(files.realPath(deepest + "/link"), deepest + "/file");
    EXPECT_EQ(files.realPath(deepest + "/../" + name + "/./file"), deepest + "/file");
    EXPECT_FALSE(files.realPath(deepest + "/missing"));

    temporary.link("short", name); // a long path with a link near the top, and back up through ".."
    const std::string below = deepest.substr(temporary.path().size() + 1 + name.size());
    EXPECT_EQ(files.realPath(temporary / "short" + below + "/link"), deepest + "/file");

    EXPECT_TRUE(remove(deepest + "/file"));
    EXPECT_FALSE(files.exists(deepest + "/file"));
    EXPECT_TRUE(remove(deepest));
    EXPECT_FALSE(files.exists(deepest));
}

TEST_F(LinuxFileSystemTest, ThousandsOfSlashesAtTheEndSayNoMoreThanOne)
{
    temporary.writeText("folder/inside", "x");
    temporary.link("link", "folder");
    for (const int count : {PATH_MAX - 50, PATH_MAX, 3 * PATH_MAX}) {
        const std::string slashes(static_cast<std::size_t>(count), '/');
        EXPECT_THAT(namesIn(*open(temporary / "link" + slashes)), ElementsAre("inside"));
        EXPECT_EQ(files.facts(temporary / "link" + slashes)->type, EntryType::symbolicLink);
        EXPECT_TRUE(files.exists(slashes));
        EXPECT_TRUE(files.exists(slashes + temporary.path() + slashes));
        EXPECT_FALSE(files.exists(temporary / "missing" + slashes));
    }
}

TEST_F(LinuxFileSystemTest, ANameLongerThanTheSystemAllowsFails)
{
    const std::string path = temporary / std::string(2 * PATH_MAX, 'x');
    EXPECT_FALSE(files.exists(path));
    EXPECT_EQ(files.facts(path).error().code, std::errc::filename_too_long);
    EXPECT_FALSE(remove(path));
}

TEST_F(LinuxFileSystemTest, TheHomeFolderComesFromTheEnvironmentThenFromTheAccount)
{
    const char *const before = std::getenv("HOME");
    const std::string kept = before ? before : "";
    ::setenv("HOME", "/some/where/", 1);
    EXPECT_EQ(files.homeFolder(), "/some/where");
    ::setenv("HOME", "/", 1);
    EXPECT_EQ(files.homeFolder(), "/");
    ::setenv("HOME", "/some//where/.", 1);
    EXPECT_EQ(files.homeFolder(), "/some/where");
    ::unsetenv("HOME");
    EXPECT_TRUE(files.homeFolder().starts_with('/'));
    ::setenv("HOME", "relative", 1);
    EXPECT_TRUE(files.homeFolder().starts_with('/'));
    if (before)
        ::setenv("HOME", kept.c_str(), 1);
}

class LinuxRemovalTest : public LinuxFileSystemTest {};

TEST_F(LinuxRemovalTest, DeletesAFile)
{
    const std::string path = temporary.writeText("file", "x");
    temporary.writeText("other", "x");
    EXPECT_TRUE(remove(path));
    EXPECT_FALSE(temporary.has("file"));
    EXPECT_TRUE(temporary.has("other"));
}

TEST_F(LinuxRemovalTest, DeletesAFolderWithEverythingInIt)
{
    temporary.writeText("folder/a/b/file", "x");
    temporary.writeText("folder/two\nlines", "x");
    temporary.writeText("folder/\xff/\xfe", "x");
    temporary.makeFolder("folder/empty");
    temporary.writeText("folder/.hidden", "x");
    temporary.writeText("beside", "x");
    EXPECT_TRUE(remove(temporary / "folder/"));
    EXPECT_FALSE(temporary.has("folder"));
    EXPECT_TRUE(temporary.has("beside"));
}

TEST_F(LinuxRemovalTest, LinksAreDeletedNeverFollowed)
{
    temporary.writeText("kept/file", "x");
    temporary.link("folder/link", temporary / "kept");
    temporary.link("folder/deep/link", "../../kept");
    temporary.link("top link", "kept");
    EXPECT_TRUE(remove(temporary / "folder"));
    EXPECT_TRUE(remove(temporary / "top link/"));
    EXPECT_FALSE(temporary.has("folder"));
    EXPECT_FALSE(temporary.has("top link"));
    EXPECT_TRUE(temporary.has("kept/file"));
}

TEST_F(LinuxRemovalTest, AMissingItemIsAnError)
{
    const Expected<void> removed = remove(temporary / "missing");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().code, std::errc::no_such_file_or_directory);
    EXPECT_EQ(removed.error().path, temporary / "missing");
}

TEST_F(LinuxRemovalTest, TheRootAndAnEmptyPathAreRefused)
{
    EXPECT_FALSE(remove("/"));
    EXPECT_FALSE(remove("//"));
    EXPECT_FALSE(remove(""));
}

TEST_F(LinuxRemovalTest, AFolderThousandsOfLevelsDeepIsDeletedWithFewOpenFiles)
{
    makeDeep("deep", 3'000);
    EXPECT_TRUE(remove(temporary / "deep"));
    EXPECT_FALSE(temporary.has("deep"));
}

TEST_F(LinuxRemovalTest, AFolderThousandsOfLevelsDeepIsDeletedWhereFileNumbersAreScarce)
{
    makeDeep("deep", 3'000);
    {
        const FewOpenFiles limit(8);
        const Expected<void> removed = remove(temporary / "deep");
        EXPECT_TRUE(removed) << removed.error().description();
    }
    EXPECT_FALSE(temporary.has("deep"));
}

TEST_F(LinuxRemovalTest, BranchesOnTheWayBackUpAreDeletedToo)
{
    std::string path = "top";
    for (int level = 0; level < 60; ++level) {
        temporary.makeFolder(path + "/a side/inner");
        temporary.writeText(path + "/z side/file", "x");
        path += "/m";
    }
    EXPECT_TRUE(remove(temporary / "top"));
    EXPECT_FALSE(temporary.has("top"));
}

TEST_F(LinuxRemovalTest, AnUndeletableItemIsNamed)
{
    if (!TemporaryFolder::canMakeUnreadable())
        GTEST_SKIP() << "root deletes everything";
    temporary.writeText("folder/closed/file", "x");
    const std::string closed = temporary.makeUnreadable("folder/closed");
    const Expected<void> removed = remove(temporary / "folder");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().path, closed);
    EXPECT_EQ(removed.error().code, std::errc::permission_denied);
    EXPECT_TRUE(temporary.has("folder"));
}

TEST_F(LinuxRemovalTest, AFolderIsDeletedPastWhatResists)
{
    if (!TemporaryFolder::canMakeUnreadable())
        GTEST_SKIP() << "root deletes everything";
    temporary.writeText("folder/closed/file", "x");
    temporary.makeUnreadable("folder/closed");
    for (int i = 0; i < 100; ++i)
        temporary.writeText("folder/side" + std::to_string(i) + "/file", "x");
    const Expected<void> removed = remove(temporary / "folder");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error().path, temporary / "folder/closed");
    EXPECT_TRUE(removed.error().inPart);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(temporary / "folder"), {}), 1);
}

TEST_F(LinuxRemovalTest, AnEmptyUnreadableFolderCanBeDeleted)
{
    temporary.makeUnreadable("folder/closed");
    EXPECT_TRUE(remove(temporary / "folder"));
    EXPECT_FALSE(temporary.has("folder"));
    temporary.makeUnreadable("alone");
    EXPECT_TRUE(remove(temporary / "alone"));
    EXPECT_FALSE(temporary.has("alone"));
}

TEST_F(LinuxRemovalTest, APathThatEndsInDotsIsRefusedAndTheFolderKeepsItsItems)
{
    temporary.writeText("folder/inner/file", "x");
    for (const char *path : {"folder/.", "folder/./", "folder/inner/..", "folder/inner/../"}) {
        const Expected<void> removed = remove(temporary / path);
        ASSERT_FALSE(removed) << path;
        EXPECT_EQ(removed.error().code, std::errc::invalid_argument) << path;
    }
    EXPECT_TRUE(temporary.has("folder/inner/file"));
}

} // namespace
} // namespace corvane
