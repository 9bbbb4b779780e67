#include "platform/process_runner.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// Makes every look at whether a child has exited fail with this code.
int codeOfWaiting = 0;

} // namespace
} // namespace corvane

/// Takes the place of the system's function in this program.
extern "C" pid_t waitpid(pid_t process, int *status, int options)
{
    if (corvane::codeOfWaiting != 0 && (options & WNOHANG) != 0) {
        errno = corvane::codeOfWaiting;
        return -1;
    }
    static void *const real = ::dlsym(RTLD_NEXT, "waitpid");
    return reinterpret_cast<decltype(&::waitpid)>(real)(process, status, options); // NOLINT
}

namespace corvane {
namespace {

class ProcessRunnerTest : public testing::Test {
protected:
    ~ProcessRunnerTest() override { codeOfWaiting = 0; }

    Expected<std::string> run(const std::string &body, const ProcessLimits &limits = {})
    {
        folder.writeText("tool", "#!/bin/sh\ncd " + folder.path() + "\n" + body + "\n");
        std::filesystem::permissions(folder / "tool", std::filesystem::perms::owner_all);
        return runProcess(folder / "tool", {}, stop, limits);
    }

    /// 0 if it succeeded.
    std::error_code codeOf(const std::string &body, const ProcessLimits &limits = {})
    {
        const auto output = run(body, limits);
        return output ? std::error_code() : output.error().code;
    }

    /// Whether the process whose PID the tool wrote into "pid" ends soon.
    bool ends() const
    {
        pid_t pid = 0;
        std::ifstream(folder / "pid") >> pid;
        EXPECT_GT(pid, 0);
        codeOfWaiting = 0;
        const std::atomic<bool> never = false;
        const auto isOver = [&] {
            if (::kill(pid, 0) != 0)
                return true;
            // A zombie stays where nobody reaps orphans.
            const auto state = runProcess("/bin/ps", {"-o", "state=", "-p", std::to_string(pid)}, never);
            return !state || state->starts_with('Z');
        };
        for (int i = 0; i < 200; ++i) {
            if (isOver())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }

    TemporaryFolder folder;
    std::atomic<bool> stop = false;
};

TEST_F(ProcessRunnerTest, EachFailureHasItsOwnCode)
{
    const ProcessLimits brief{.time = std::chrono::milliseconds(200)};
    EXPECT_EQ(codeOf("echo text"), std::error_code());
    EXPECT_EQ(codeOf("exit 3"), std::errc::io_error);
    EXPECT_EQ(codeOf("kill -9 $$"), std::errc::io_error);
    EXPECT_EQ(codeOf("echo too much; exec sleep 60", {.output = 5}), std::errc::file_too_large);
    EXPECT_EQ(codeOf("echo too much", {.output = 5}), std::errc::file_too_large);
    EXPECT_EQ(codeOf("exec sleep 60", brief), std::errc::timed_out);
    EXPECT_EQ(codeOf("exec >&-; exec sleep 60", brief), std::errc::timed_out);
    stop = true;
    EXPECT_EQ(codeOf("exec sleep 60"), std::errc::operation_canceled);
    stop = false;

    const auto missing = runProcess(folder / "missing", {}, stop);
    ASSERT_FALSE(missing);
    EXPECT_TRUE(missing.error().isMissing());
    const auto notExecutable = runProcess(folder.path(), {}, stop);
    ASSERT_FALSE(notExecutable);
    EXPECT_EQ(notExecutable.error().code, std::errc::permission_denied);
}

TEST_F(ProcessRunnerTest, OutputThatHasNotEndedInTimeIsNotReturned)
{
    EXPECT_EQ(codeOf("sleep 60 & echo $! > pid; echo text", {.time = std::chrono::milliseconds(500)}),
              std::errc::timed_out);
    EXPECT_TRUE(ends()) << "what holds the output open is ended";
}

TEST_F(ProcessRunnerTest, AFailureToWaitLeavesNothingRunning)
{
    codeOfWaiting = ENOSYS;
    EXPECT_EQ(codeOf("echo $$ > pid; exec >&-; exec sleep 60"), std::errc::function_not_supported);
    EXPECT_TRUE(ends());
}

TEST_F(ProcessRunnerTest, AChildThatWasReapedElsewhereIsNotKilled)
{
    // Its PID, and the process group, may be another program's by now.
    codeOfWaiting = ECHILD;
    EXPECT_EQ(codeOf("sleep 1 >/dev/null 2>&1 && touch survived & exec >&-"), std::errc::no_child_process);
    for (int i = 0; i < 200 && !std::filesystem::exists(folder / "survived"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_TRUE(std::filesystem::exists(folder / "survived"));
}

} // namespace
} // namespace corvane
