#include "core/mount_map.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Paths = std::vector<std::string>;

TEST(MountMap, AnItemOfAFolderThatIsMountedASecondTimeHasAnotherPath)
{
    const MountMap mounts(
        {{.path = "/", .fileSystem = 1}, {.path = "/home/me/second", .fileSystem = 1, .shown = "/home/me/.ssh/keys"}});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/second/id"), Paths{"/home/me/.ssh/keys/id"});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/second"), Paths{"/home/me/.ssh/keys"});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/.ssh/keys/id"), Paths{"/home/me/second/id"});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/.ssh/other"), Paths{});
}

TEST(MountMap, APartOfAFileSystemThatIsMountedNowhereElseHasNoOtherPath)
{
    const MountMap mounts({{.path = "/", .fileSystem = 1, .shown = "/@"},
                           {.path = "/home", .fileSystem = 1, .shown = "/@home"},
                           {.path = "/home/me/usb", .fileSystem = 2}});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/a"), Paths{});
    EXPECT_EQ(mounts.otherPathsOf("/home/me/usb/a"), Paths{});
}

TEST(MountMap, APathThatAnotherMountHidesIsNone)
{
    const MountMap mounts({{.path = "/", .fileSystem = 1},
                           {.path = "/home/me/.ssh", .fileSystem = 2},
                           {.path = "/mnt", .fileSystem = 1, .shown = "/home/me/.ssh"}});
    EXPECT_EQ(mounts.otherPathsOf("/mnt/id"), Paths{});
}

} // namespace
} // namespace corvane
