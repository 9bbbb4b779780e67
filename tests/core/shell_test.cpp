#include "core/shell.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/process_runner.h"
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

    static bool isZombie(int pid)
    {
        const std::string state = Shell::run("/bin/ps", {"-o", "state=", "-p", std::to_string(pid)}).value_or("");
        return state.starts_with('Z');
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

TEST_F(ShellTest, AFileThatIsNoProgramGivesNothing)
{
    const std::string path = folder.writeText("text", "no program\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    EXPECT_EQ(Shell::run(path, {}), std::nullopt);
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

TEST_F(ShellTest, OutputOfSixtyMegabytesArrivesWhole)
{
    const auto output = Shell::run(script("head -c 60000000 /dev/zero"), {});
    ASSERT_TRUE(output);
    EXPECT_EQ(output->size(), 60'000'000u);
}

TEST_F(ShellTest, AChildThatClosesItsOutputEarlyIsWaitedFor)
{
    const auto output = Shell::run(script("echo early; exec >&-; sleep 0.2; touch " + folder.path() + "/finished"), {});
    EXPECT_EQ(output, "early\n");
    EXPECT_TRUE(std::filesystem::exists(folder.path() + "/finished"));
}

TEST_F(ShellTest, AChildThatFloodsStandardErrorAfterItsOutputDoesNotBlock)
{
    EXPECT_EQ(Shell::run(script("echo early; exec >&-; head -c 1000000 /dev/zero >&2"), {}), "early\n");
}

TEST_F(ShellTest, AProgramThatIsLeftBehindWithStandardErrorIsNotWaitedFor)
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Shell::run(script("sleep 20 >/dev/null & echo done"), {}), "done\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

TEST_F(ShellTest, TheToolGetsTheProgramsOwnEnvironment)
{
    ::setenv("CORVANE_TEST_VARIABLE", "a b", 1);
    EXPECT_EQ(Shell::run(script("printf %s \"$CORVANE_TEST_VARIABLE\""), {}), "a b");
    ::unsetenv("CORVANE_TEST_VARIABLE");
}

TEST_F(ShellTest, StandardErrorOfTheToolIsDiscarded)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(Shell::run(script("echo noise >&2; echo text"), {}), "text\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(ShellTest, AnEmptyOutputIsNotAFailure)
{
    EXPECT_EQ(Shell::run(script("exit 0"), {}), "");
}

TEST_F(ShellTest, BytesOfEveryValueArrive)
{
    EXPECT_EQ(Shell::run(script("printf 'a\\000\\377\\nb'"), {}), std::string("a\0\xff\nb", 5));
}

TEST_F(ShellTest, SeveralToolsMayRunAtOnce)
{
    const std::string tool = script("sleep 0.1; echo \"$1\"");
    std::vector<std::future<std::optional<std::string>>> runs;
    for (int i = 0; i < 8; ++i)
        runs.push_back(std::async(std::launch::async, [&tool, i] { return Shell::run(tool, {std::to_string(i)}); }));
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(runs[static_cast<std::size_t>(i)].get(), std::to_string(i) + "\n");
}

TEST_F(ShellTest, OnceStoppedTheToolIsEnded)
{
    for (const char *const body : {"sleep 30", "exec >&- 2>&-; sleep 30"}) {
        StopFlag stop = false;
        const std::string tool = script(body);
        const auto start = std::chrono::steady_clock::now();
        auto run = std::async(std::launch::async, [&] { return Shell::run(tool, {}, stop); });
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        stop = true;
        EXPECT_EQ(run.get(), std::nullopt) << body;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << body;
    }
}

TEST_F(ShellTest, AToolThatPrintsMoreThanSixtyFourMegabytesHasFailed)
{
    EXPECT_EQ(Shell::run(script("yes"), {}), std::nullopt); // prints endlessly
    EXPECT_EQ(Shell::run(script("head -c 64000001 /dev/zero"), {}), std::nullopt);
}

TEST_F(ShellTest, AToolThatDoesNotEndInTimeIsEndedWithWhatItStartedAndHasFailed)
{
    const ProcessLimits limits{.time = std::chrono::milliseconds(300)};
    const std::string started = folder.path() + "/started";
    for (const char *const body :
         {"sleep 60 & echo $! > started; wait", "exec >&- 2>&-; sleep 60 & echo $! > started; wait"}) {
        const auto output = runProcess(script("cd " + folder.path() + "\n" + body), {}, neverStopped, limits);
        ASSERT_FALSE(output) << body;
        int pid = 0;
        std::ifstream(started) >> pid;
        ASSERT_GT(pid, 0) << body;
        // Either reaped or still a zombie.
        for (int i = 0; i < 1'000 && ::kill(pid, 0) == 0 && !isZombie(pid); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_TRUE(::kill(pid, 0) != 0 || isZombie(pid)) << body;
    }
}

TEST_F(ShellTest, TheRunnersToolsWriteAsWithoutALanguage)
{
    EXPECT_EQ(Shell::runner()(script("echo \"$LC_ALL $1\""), {"as it is"}), "C as it is\n");
    EXPECT_EQ(Shell::runner()(folder.path() + "/no such tool", {}), std::nullopt);
}

TEST_F(ShellTest, AChildThatReadsItsInputFindsItsEnd)
{
    EXPECT_EQ(Shell::run(script("cat; echo end"), {}), "end\n");
}

} // namespace
} // namespace corvane
