#include "platform/linux/linux_file_system.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include <sys/stat.h>

#include <gmock/gmock.h>

#include "platform/linux/linux_file_system_fixture.h"
#include "platform/posix/interrupted_call.h"

namespace corvane {
namespace {

using testing::ElementsAre;

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

TEST_F(LinuxFileSystemTest, AFileOfUnknownSizeIsReadUpToTheLimit)
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

TEST_F(LinuxFileSystemTest, ThousandsOfTrailingSlashesEqualOne)
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

} // namespace
} // namespace corvane
