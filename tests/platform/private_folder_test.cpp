#include "platform/private_folder.h"

#include <fcntl.h>
#include <gmock/gmock.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::UnorderedElementsAre;

struct PrivateFolderTest : testing::Test {
    const TemporaryFolder base;
    const PrivateFolder folder = std::move(PrivateFolder::open(base.path(), {"outer", "inner"}).value());
};

TEST_F(PrivateFolderTest, IsMadeBelowItsBase)
{
    EXPECT_EQ(folder.path(), base / "outer/inner");
    EXPECT_TRUE(base.has("outer/inner"));
}

TEST_F(PrivateFolderTest, ANewFileReplacesNothing)
{
    base.writeText("outer/inner/file", "mine");
    const auto created = folder.createFile("file");
    ASSERT_FALSE(created);
    EXPECT_EQ(created.error().code, std::errc::file_exists);
}

TEST_F(PrivateFolderTest, RemovesLinksButNeitherTheirTargetsNorFolders)
{
    const std::string target = base.writeText("precious", "mine");
    base.link("outer/inner/link", target);
    base.makeFolder("outer/inner/folder");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("link", "folder"));
    folder.removeFile("link");
    folder.removeFile("folder");
    folder.removeFile("missing");
    EXPECT_THAT(folder.names(), UnorderedElementsAre("folder"));
    EXPECT_TRUE(base.has("precious"));
}

TEST_F(PrivateFolderTest, KnowsTheLengthOfWhatWasWritten)
{
    const auto file = folder.createFile("file");
    ASSERT_TRUE(file);
    ASSERT_TRUE(writeBytes(*file, "four"));
    ASSERT_TRUE(writeBytes(*file, {}));
    ASSERT_TRUE(flushToDisk(*file));
    EXPECT_EQ(lengthOf(*file), 4);
}

TEST(WriteBytes, FullDiskIsReported)
{
    const FileDescriptor full(::open("/dev/full", O_WRONLY));
    if (!full.isOpen())
        GTEST_SKIP() << "there is no /dev/full here";
    const auto written = writeBytes(full, "one");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().code, std::errc::no_space_on_device);
}

} // namespace
} // namespace corvane
