#include <gtest/gtest.h>

#include "platform/linux/probe_home.h"

namespace corvane {
namespace {

TEST(LinuxVolumes, CapacityIsTheWholeVolumesAndAvailableIsWhatAFileMayStillTake)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    const ProbeHome home;
    const std::string answer = home.runSandboxed({"--size", "1048576", "--tmpfs", home.folder / "home"}, R"(
        dd if=/dev/zero of="$HOME/file" bs=4096 count=64 2> /dev/null
        $probe volume "$HOME/file")");
    EXPECT_EQ(answer, "absent 1048576 786432 absent");
}

TEST(LinuxVolumes, EverythingIsAbsentForAPathThatDoesNotExist)
{
    const ProbeHome home;
    EXPECT_EQ(home.ask("volume", home.folder / "none"), "absent absent absent absent");
}

} // namespace
} // namespace corvane
