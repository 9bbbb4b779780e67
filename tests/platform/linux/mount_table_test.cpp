#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/host.h"
#include "platform/linux/probe_home.h"

namespace corvane {
namespace {

TEST(LinuxMountTable, TellsWhatIsSeenWhereAndOfWhichFileSystem)
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

TEST(LinuxMountTable, OfTwoMountsOnOneFolderOnlyTheUpperIsTold)
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
