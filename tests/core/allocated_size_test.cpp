#include "core/allocated_size.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

class AllocatedSizeTest : public testing::Test {
protected:
    std::int64_t sizeOf(const std::string &relative) const { return allocatedSize(folder.path() + "/" + relative); }

    TemporaryFolder folder;
};

TEST_F(AllocatedSizeTest, OfAFileIsWhatItOccupies)
{
    folder.writeFile("plain", 8192);
    std::filesystem::resize_file(folder.writeText("sparse", ""), 100'000'000);
    EXPECT_EQ(sizeOf("plain"), 8192);
    EXPECT_EQ(sizeOf("sparse"), 0);
}

TEST_F(AllocatedSizeTest, OfAFolderCountsEveryFileBeneathIt)
{
    folder.writeFile("top/a", 8192);
    folder.writeFile("top/.hidden/b", 8192);
    folder.writeFile("top/Thing.app/Contents/c", 8192);
    EXPECT_EQ(sizeOf("top"), 3 * 8192);
}

TEST_F(AllocatedSizeTest, AFileWithTwoNamesCountsForEach)
{
    folder.writeFile("top/a", 8192);
    folder.hardLink("top/b", "top/a");
    EXPECT_EQ(sizeOf("top"), 2 * 8192);
}

TEST_F(AllocatedSizeTest, ASparseFileInAFolderCountsWhatItOccupies)
{
    folder.writeSparse("top/disk.img", 100'000'000);
    EXPECT_EQ(sizeOf("top"), 0);
    folder.writeFile("top/a", 8192);
    EXPECT_EQ(sizeOf("top"), 8192);
}

TEST_F(AllocatedSizeTest, NeverFollowsALink)
{
    folder.writeFile("target/big", 40'960);
    folder.writeFile("top/a", 8192);
    folder.link("top/link", folder.path() + "/target");
    folder.link("link", folder.path() + "/target");
    EXPECT_EQ(sizeOf("top"), 8192);
    EXPECT_EQ(sizeOf("link"), 0);
}

TEST_F(AllocatedSizeTest, OfAMissingItemIsZero)
{
    EXPECT_EQ(sizeOf("missing"), 0);
}

TEST(AllocatedSize, AFolderInsideThatCannotBeReadIsSkipped)
{
    FakeHost fake;
    fake.files.addFile("/top/a", 8192);
    fake.files.addFile("/top/locked/b", 8192);
    fake.files.addFile("/top/open/c", 4096);
    fake.files.failOpening("/top/locked");
    EXPECT_EQ(allocatedSize("/top", fake.files), 8192 + 4096);
}

TEST(AllocatedSize, EveryFolderIsListedOnce)
{
    TemporaryFolder folder;
    std::string path = "deep";
    for (int level = 0; level < 200; ++level) {
        folder.writeFile(path + "/f", 4096);
        path += "/d";
    }
    EXPECT_EQ(allocatedSize(folder.path() + "/deep"), 200 * 4096);
}

} // namespace
} // namespace corvane
