#include <filesystem>

#include <gtest/gtest.h>

#include "platform/linux/linux_file_system_fixture.h"
#include "support/few_open_files.h"

namespace corvane {
namespace {

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
