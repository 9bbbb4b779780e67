#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/host.h"
#include "platform/linux/mount_table.h"
#include "platform/linux/probe_home.h"

namespace corvane {
namespace {

TEST(LinuxMountTable, IsReadWithPathsAsTheKernelWritesThem)
{
    std::istringstream text("22 1 254:0 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
                            "23 22 0:40 /@home /home rw shared:2 master:3 - btrfs /dev/sdb rw\n"
                            "24 22 0:41 / /home/a\\040b\\011c\\012d\\134e ro - fuse.sshfs me@host:/x\\040y ro\n"
                            "25 22 0:42 / /srv rw - zfs rpool/ROOT/debian rw\n"
                            "26 22 0:43 / /net rw - autofs\n"
                            "torn\n\n27 22 x:y / /no rw - ext4 a rw\n");
    const std::vector<MountedFolder> mounts = mountsIn(text);
    ASSERT_EQ(mounts.size(), 5u);
    EXPECT_EQ(mounts[0], (MountedFolder{"/", std::uint64_t{254} << 32, "/", "/dev/sda1"}));
    EXPECT_EQ(mounts[1], (MountedFolder{"/home", 40, "/@home", "/dev/sdb"}));
    EXPECT_EQ(mounts[2], (MountedFolder{"/home/a b\tc\nd\\e", 41, "/", "me@host:/x y", "", true}));
    EXPECT_EQ(mounts[3], (MountedFolder{"/srv", 42, "/", "rpool/ROOT/debian", "rpool"}));
    EXPECT_EQ(mounts[4], (MountedFolder{"/net", 43, "/", "", "", true}));
}

TEST(LinuxMountTable, ListsTheRootTheMountPointAndTheFileSystem)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    const ProbeHome home;
    const std::string first = home.folder.makeFolder("home/a b");
    const std::string again = home.folder.makeFolder("home/again");
    const std::string disk = home.folder.makeFolder("home/disk");
    home.folder.makeFolder("home/disk/inner");
    const std::string answer = home.runSandboxed({"--bind", disk, first, "--bind", disk + "/inner", again},
                                                 "$probe mounts '" + home.folder / "home" + "'");
    std::istringstream lines(answer);
    std::string line;
    ASSERT_TRUE(std::getline(lines, line)) << answer;
    ASSERT_TRUE(line.starts_with(first + " ")) << answer;
    std::istringstream fields(line.substr(first.size()));
    std::string fileSystem, shown;
    fields >> fileSystem >> shown;
    ASSERT_TRUE(std::getline(lines, line)) << answer;
    EXPECT_TRUE(shown.ends_with("/home/disk")) << answer;
    EXPECT_EQ(line, again + " " + fileSystem + " " + shown + "/inner");
}

TEST(LinuxMountTable, OfTwoMountsOnOneFolderOnlyTheUpperIsListed)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    const ProbeHome home;
    const std::string point = home.folder.makeFolder("home/point");
    const std::string answer = home.runSandboxed({"--tmpfs", point, "--bind", home.folder / "home/config", point},
                                                 "$probe mounts '" + point + "'");
    EXPECT_EQ(std::count(answer.begin(), answer.end(), '\n'), 0) << answer;
    EXPECT_TRUE(answer.ends_with("/home/config")) << answer;
}

TEST(SystemKind, IsAMacsWhereTheRootHoldsAMacsOwnFile)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("kind"), systemHost().files.exists(std::string(macSystemFile)) ? "mac" : "linux");
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    home.folder.writeText("home/SystemVersion.plist", "");
    EXPECT_EQ(home.runSandboxed({"--tmpfs", "/System", "--ro-bind", home.folder / "home/SystemVersion.plist",
                                 std::string(macSystemFile)},
                                "$probe kind"),
              "mac");
}

} // namespace
} // namespace corvane
