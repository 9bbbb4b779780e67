#include "platform/linux/volume_trashes.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A folder in place of a volume's root.
class VolumeTrashesTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> trashes(const std::string &source = "/dev/sdb1") const
    {
        return volumeTrashesOn({{volume.path(), 7, "/", source}});
    }

    const TemporaryFolder volume;
    const std::string user = std::to_string(::getuid());
};

TEST_F(VolumeTrashesTest, BothPlacesOfTheUserAreFound)
{
    EXPECT_THAT(trashes(), IsEmpty());
    volume.makeFolder(".Trash/" + user + "/files");
    volume.makeFolder(".Trash-" + user + "/files");
    ASSERT_EQ(::chmod((volume / ".Trash").c_str(), 01777), 0);
    EXPECT_THAT(trashes(), ElementsAre(volume / (".Trash/" + user + "/files"), volume / (".Trash-" + user + "/files")));
}

TEST_F(VolumeTrashesTest, ASharedOneWithoutTheStickyBitIsIgnored)
{
    volume.makeFolder(".Trash/" + user + "/files");
    ASSERT_EQ(::chmod((volume / ".Trash").c_str(), 0777), 0);
    EXPECT_THAT(trashes(), IsEmpty());
}

TEST_F(VolumeTrashesTest, LinksOnTheWayAreIgnored)
{
    volume.makeFolder("real/" + user + "/files");
    volume.makeFolder("own/files");
    ASSERT_EQ(::chmod((volume / "real").c_str(), 01777), 0);
    volume.link(".Trash", "real");
    volume.link(".Trash-" + user, "own");
    EXPECT_THAT(trashes(), IsEmpty());
    ASSERT_EQ(::unlink((volume / (".Trash-" + user)).c_str()), 0);
    volume.makeFolder(".Trash-" + user);
    volume.link(".Trash-" + user + "/files", volume / "own/files");
    EXPECT_THAT(trashes(), IsEmpty());
}

TEST_F(VolumeTrashesTest, ThatOfAnotherUserIsIgnored)
{
    volume.makeFolder(".Trash-" + std::to_string(::getuid() + 1) + "/files");
    volume.makeFolder(".Trash-" + user + "/files");
    if (::chown((volume / (".Trash-" + user)).c_str(), ::getuid() + 1, static_cast<gid_t>(-1)) != 0)
        GTEST_SKIP() << "only root can give a folder to another user";
    EXPECT_THAT(trashes(), IsEmpty());
}

TEST_F(VolumeTrashesTest, WhatIsNoDiskOfThisComputerIsNotTouched)
{
    volume.makeFolder(".Trash-" + user + "/files");
    for (const char *source : {"server:/export", "//server/share", "user@host:", "tmpfs", ""})
        EXPECT_THAT(trashes(source), IsEmpty()) << source;
}

} // namespace
} // namespace corvane
