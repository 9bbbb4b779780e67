#include <cstdint>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include "platform/block_count.h"
#include "platform/linux/probe_home.h"

namespace corvane {
namespace {

TEST(BlockCount, AnOverflowIsAbsent)
{
    EXPECT_EQ(bytesOfBlocks(std::uint64_t{3}, 4096), 12'288);
    EXPECT_EQ(bytesOfBlocks(std::numeric_limits<std::uint64_t>::max(), 4096), std::nullopt);
    EXPECT_EQ(bytesOfBlocks(std::int64_t{-1}, 4096), std::nullopt);
}

// On a disk without reserved blocks both totals are equal, and this test cannot fail.
TEST(LinuxVolumes, WhatIsKeptForTheAdministratorIsNoCapacity)
{
    struct statvfs volume {};
    ASSERT_EQ(::statvfs("/", &volume), 0);
    const ProbeHome home;
    std::istringstream answer(home.ask("volume", "/"));
    std::string name;
    std::uint64_t total = 0;
    answer >> name >> total;
    // Used and available space change while other programs write; their sum does not.
    EXPECT_EQ(total, (volume.f_blocks - volume.f_bfree + volume.f_bavail) * volume.f_frsize);
}

TEST(LinuxVolumes, CapacityIsWhatUsersMayTakeAndAvailableIsWhatAFileMayStillTake)
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
