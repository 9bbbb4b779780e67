#include "core/size_walk.h"

#include <gtest/gtest.h>

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using Counting = SizeWalk::Counting;

class SizeWalkTest : public testing::Test {
protected:
    std::int64_t walk(SizeWalk &walk, const std::string &path, FileSystem &files)
    {
        auto folder = files.openFolder(path);
        return folder ? walk.walk(std::move(*folder), path) : -1;
    }

    FakeHost fake;
    ExcludedItems excluded;
};

TEST_F(SizeWalkTest, AFileWithTwoNamesCountsTwiceByNameAndOnceAsTheDiskCounts)
{
    fake.files.addFile("/data/a", 5'000);
    fake.files.addFile("/data/deep/b", 5'000);
    fake.files.identify("/data/deep/b", "/data/a");
    fake.files.addFile("/data/c", 1'000);
    SizeWalk byName(Counting::everyName, excluded, neverStopped);
    EXPECT_EQ(walk(byName, "/data", fake.files), 11'000);
    SizeWalk asTheDisk(Counting::asTheDisk, excluded, neverStopped);
    EXPECT_EQ(walk(asTheDisk, "/data", fake.files), 6'000);
}

TEST_F(SizeWalkTest, ANameInAnotherWalkOfTheSameRunIsNotCountedAgain)
{
    fake.files.addFile("/one/a", 5'000);
    fake.files.addFile("/two/b", 5'000);
    fake.files.identify("/two/b", "/one/a");
    SizeWalk both(Counting::asTheDisk, excluded, neverStopped);
    EXPECT_EQ(walk(both, "/one", fake.files), 5'000);
    EXPECT_EQ(walk(both, "/two", fake.files), 0);
}

TEST_F(SizeWalkTest, WhatIsExcludedIsLeftOutAtAnyDepthWithAllBeneathIt)
{
    fake.files.addFile("/data/a", 1);
    fake.files.addFile("/data/x/b", 10);
    fake.files.addFile("/data/x/out/c", 100);
    fake.files.addFile("/data/x/out/deeper/d", 1'000);
    fake.files.addFile("/data/x/outside/e", 10'000);
    fake.files.addFile("/data/x/swap", 100'000);
    excluded.add("/data/x/out");
    excluded.add("/data/x/swap");
    SizeWalk sizes(Counting::everyName, excluded, neverStopped);
    EXPECT_EQ(walk(sizes, "/data", fake.files), 10'011);
}

TEST_F(SizeWalkTest, FoldersThatCannotBeReadAreCounted)
{
    fake.files.addFile("/data/a", 1);
    fake.files.addFile("/data/closed/b", 10);
    fake.files.failOpening("/data/closed");
    fake.files.addFile("/data/broken/c", 100);
    fake.files.failListing("/data/broken");
    SizeWalk sizes(Counting::everyName, excluded, neverStopped);
    EXPECT_EQ(walk(sizes, "/data", fake.files), 1);
    EXPECT_EQ(sizes.unreadable(), 2);
}

TEST_F(SizeWalkTest, AStoppedWalkEndsWithWhatItHas)
{
    fake.files.addFile("/data/a", 1);
    StopFlag stop;
    stop = true;
    SizeWalk sizes(Counting::everyName, excluded, stop);
    EXPECT_LE(walk(sizes, "/data", fake.files), 1);
}

TEST_F(SizeWalkTest, OnADiskAHardLinkIsCountedOnceAndTheFoldersBlocksToo)
{
    const TemporaryFolder folder;
    folder.writeFile("a", 1'000'000);
    std::filesystem::create_hard_link(folder / "a", folder / "b");
    folder.makeFolder("deep");
    const auto own = [](const std::string &path) {
        struct stat facts {};
        EXPECT_EQ(::stat(path.c_str(), &facts), 0);
        return std::int64_t{facts.st_blocks} * 512;
    };
    SizeWalk sizes(Counting::asTheDisk, excluded, neverStopped);
    EXPECT_EQ(walk(sizes, folder.path(), systemHost().files),
              own(folder / "a") + own(folder.path()) + own(folder / "deep"));
}

TEST(ExcludedItems, FindAnExcludedItemBeneathAFolder)
{
    ExcludedItems excluded;
    excluded.add("/home/me/x");
    EXPECT_TRUE(excluded.anyBeneath("/"));
    EXPECT_TRUE(excluded.anyBeneath("/home"));
    EXPECT_TRUE(excluded.anyBeneath("/home/me"));
    EXPECT_FALSE(excluded.anyBeneath("/home/me/x"));
    EXPECT_FALSE(excluded.anyBeneath("/home/m"));
    EXPECT_FALSE(excluded.anyBeneath("/home/mean"));
    EXPECT_FALSE(excluded.anyBeneath("/usr"));
}

} // namespace
} // namespace corvane
