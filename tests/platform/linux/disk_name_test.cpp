#include "platform/linux/disk_name.h"

#include <gtest/gtest.h>

#include "platform/host.h"
#include "platform/linux/probe_home.h"

namespace corvane {
namespace {

TEST(DiskName, IsNeverEmpty)
{
    const auto name = nameOfDisk(systemHost().files);
    ASSERT_TRUE(name.has_value());
    EXPECT_FALSE(name->empty());
}

TEST(DiskName, ALabelsBlanksAreWrittenAsUdevWritesThem)
{
    EXPECT_EQ(unescapedLabel("My\\x20Disk"), "My Disk");
    EXPECT_EQ(unescapedLabel("plain"), "plain");
    EXPECT_EQ(unescapedLabel("odd\\x2"), "odd\\x2");
    EXPECT_EQ(unescapedLabel("odd\\xzz"), "odd\\xzz");
}

// A folder without disk labels replaces the one that udev maintains.
TEST(DiskName, WhatASystemCallsItselfIsTakenWhereItIsAName)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bwrap cannot make a sandbox here";
    const ProbeHome home;
    const std::string file = home.folder.writeText("home/os-release", "");
    const auto nameWith = [&](const std::string &text) {
        home.folder.writeText("home/os-release", text);
        return home.runSandboxed({"--dev", "/dev", "--hostname", "my-host", "--unshare-uts", "--ro-bind", file,
                                  "/usr/lib/os-release", "--ro-bind", file, "/etc/os-release"},
                                 "$probe disk-name");
    };
    EXPECT_EQ(nameWith("ID=x\nNAME=\"Some \\\"Linux\\\"\"\n"), "Some \"Linux\"");
    EXPECT_EQ(nameWith("NAME='Plain'\r\n"), "Plain");
    EXPECT_EQ(nameWith("ID=x\n"), "my-host");
    EXPECT_EQ(nameWith("NAME=\"\"\n"), "my-host");
    EXPECT_EQ(nameWith("NAME=" + std::string(5'000, 'x') + "\n"), "my-host");
    EXPECT_EQ(nameWith(std::string(1'000'000, '\n') + "NAME=late\n"), "my-host");
    EXPECT_EQ(nameWith(std::string("\0\xff=\n==\nNAME", 11)), "my-host");
}

} // namespace
} // namespace corvane
