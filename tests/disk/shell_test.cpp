#include "disk/shell.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

class ShellTest : public testing::Test {
protected:
    std::string script(const std::string &body)
    {
        const std::string path = folder.path() + "/tool";
        folder.writeText("tool", "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }

    TemporaryFolder folder;
};

TEST_F(ShellTest, ReturnsTheWholeOutputWithArgumentsAsTheyAre)
{
    const std::string tool = script(R"(printf '%s|' "$@")");
    EXPECT_EQ(Shell::run(tool, {"a b", "$HOME", "*", ""}), "a b|$HOME|*||");
}

TEST_F(ShellTest, APathThatIsNotExecutableStartsNothing)
{
    folder.writeText("plain", "#!/bin/sh\ntouch " + folder.path() + "/started\n");
    std::filesystem::permissions(folder.path() + "/plain", std::filesystem::perms::owner_read);
    EXPECT_EQ(Shell::run(folder.path() + "/plain", {}), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder.path() + "/started"));
}

TEST_F(ShellTest, AMissingToolOrAFolderGivesNothing)
{
    EXPECT_EQ(Shell::run(folder.path() + "/missing", {}), std::nullopt);
    EXPECT_EQ(Shell::run(folder.path(), {}), std::nullopt);
}

TEST_F(ShellTest, AnExitStatusOtherThanZeroDiscardsTheOutput)
{
    EXPECT_EQ(Shell::run(script("echo text; exit 3"), {}), std::nullopt);
    EXPECT_EQ(Shell::run(script("echo text; kill -9 $$"), {}), std::nullopt);
}

TEST_F(ShellTest, AChildThatFillsStandardErrorDoesNotBlock)
{
    const auto output = Shell::run(script("head -c 1000000 /dev/zero >&2; echo done"), {});
    EXPECT_EQ(output, "done\n");
}

TEST_F(ShellTest, OutputOfOneHundredMegabytesArrivesWhole)
{
    const auto output = Shell::run(script("head -c 100000000 /dev/zero"), {});
    ASSERT_TRUE(output);
    EXPECT_EQ(output->size(), 100'000'000u);
}

TEST_F(ShellTest, AChildThatClosesItsOutputEarlyIsWaitedFor)
{
    const auto output = Shell::run(script("echo early; exec >&-; sleep 0.2; touch " + folder.path() + "/finished"), {});
    EXPECT_EQ(output, "early\n");
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/finished"));
}

TEST_F(ShellTest, AChildThatReadsItsInputFindsItsEnd)
{
    EXPECT_EQ(Shell::run(script("cat; echo end"), {}), "end\n");
}

} // namespace
} // namespace corvane
