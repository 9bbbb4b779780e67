#include "platform/crash_handler.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "platform/linux/crash_report_text.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr int noHandler = 3; // the program's exit status

/// Runs the crashing program in a temporary home folder.
class CrashHandler : public testing::Test {
protected:
    /// The wait status, as returned by waitpid.
    [[nodiscard]] int run(const std::string &way, bool withHandler = true)
    {
        std::vector<std::string> arguments{program, way};
        if (!withHandler)
            arguments.emplace_back("plain");
        std::vector<std::string> environment{"HOME=" + homeVariable, "CORVANE_TOKEN=SECRET"};
        if (!stateHome.empty())
            environment.push_back("XDG_STATE_HOME=" + stateHome);
        const auto pointers = [](std::vector<std::string> &texts) {
            std::vector<char *> found;
            for (std::string &text : texts)
                found.push_back(text.data());
            found.push_back(nullptr);
            return found;
        };
        posix_spawn_file_actions_t actions{};
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        pid_t child = 0;
        int status = -1;
        EXPECT_EQ(::posix_spawn(&child, arguments.front().c_str(), &actions, nullptr, pointers(arguments).data(),
                                pointers(environment).data()),
                  0);
        ::waitpid(child, &status, 0);
        ::posix_spawn_file_actions_destroy(&actions);
        return status;
    }

    [[nodiscard]] std::vector<std::filesystem::path> reports() const
    {
        const std::string folder =
            stateHome.empty() ? home / ".local/state/corvane/reports" : stateHome + "/corvane/reports";
        std::error_code failure;
        std::filesystem::directory_iterator entries(folder, failure);
        std::vector<std::filesystem::path> found;
        for (const auto &entry : entries)
            found.push_back(entry.path());
        return found;
    }

    [[nodiscard]] static std::string textOf(const std::filesystem::path &path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The only report of a program killed by this signal.
    [[nodiscard]] std::string reportOf(const std::string &way, int signal)
    {
        const int status = run(way);
        EXPECT_TRUE(WIFSIGNALED(status)) << status;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(reports().size(), 1U);
        return reports().empty() ? std::string{} : textOf(reports().front());
    }

    void SetUp() override
    {
        if (WEXITSTATUS(run("")) == noHandler)
            GTEST_SKIP() << "built with a sanitizer, which reports on crashes itself";
    }

    TemporaryFolder home;
    std::string stateHome;
    std::string homeVariable = home.path();
    std::string program = CORVANE_CRASHING_PROGRAM;
};

TEST_F(CrashHandler, ProgramThatDoesNotCrashLeavesNothingInTheHome)
{
    EXPECT_EQ(run(""), 0);
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(CrashHandler, EverySignalThatEndsTheProgramIsReportedAndStillEndsIt)
{
    const std::vector<std::tuple<std::string, int, std::string>> ways{
        {"null", SIGSEGV, "SIGSEGV"},    {"killed", SIGSEGV, "SIGSEGV"},    {"bus", SIGBUS, "SIGBUS"},
        {"divide", SIGFPE, "SIGFPE"},    {"instruction", SIGILL, "SIGILL"}, {"abort", SIGABRT, "SIGABRT"},
        {"system", SIGSYS, "SIGSYS"},    {"trap", SIGTRAP, "SIGTRAP"},      {"exception", SIGABRT, "SIGABRT"},
        {"overflow", SIGSEGV, "SIGSEGV"}};
    for (const auto &[way, signal, name] : ways) {
        SCOPED_TRACE(way);
        const int plain = run(way, false);
        ASSERT_TRUE(WIFSIGNALED(plain));
        ASSERT_EQ(WTERMSIG(plain), signal) << "the test's program crashes in another way than it is to";
        EXPECT_THAT(reportOf(way, signal), HasSubstr("\n\nSignal: " + std::to_string(signal) + " " + name + ", code "));
        std::filesystem::remove_all(home / ".local");
    }
}

TEST_F(CrashHandler, ReportBeginsWithALineThatSaysOfWhichProgramItIs)
{
    const std::string report = reportOf("null", SIGSEGV);
    const std::regex line(
        R"re(\{"app_name":"crashing_program","timestamp":"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.00 \+0000",)re"
        R"re("app_version":"1\.2\.0","build_version":"10200","bug_type":"309"\})re");
    EXPECT_TRUE(std::regex_match(report.substr(0, report.find('\n')), line)) << report;
}

TEST_F(CrashHandler, ReportIsNamedLikeTheSystemsOwnAndReadByItsUserAlone)
{
    static_cast<void>(reportOf("abort", SIGABRT));
    ASSERT_EQ(reports().size(), 1U);
    const std::regex name(R"(crashing_program-\d{4}-\d\d-\d\d-\d{6}\.ips)");
    EXPECT_TRUE(std::regex_match(reports().front().filename().string(), name)) << reports().front();
    struct stat facts {};
    ASSERT_EQ(::stat(reports().front().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0600U);
    ASSERT_EQ(::stat(reports().front().parent_path().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0700U);
}

TEST_F(CrashHandler, FramesNameTheirModuleAndThePlaceInIt)
{
    const std::string report = reportOf("null", SIGSEGV);
    EXPECT_THAT(report, HasSubstr("Fault address: 0x0\n"));
    EXPECT_THAT(report, HasSubstr("Thread: main\n"));
    // The crash is in the program itself, called from the C library.
    EXPECT_THAT(report, HasSubstr("\n0 crashing_program + 0x"));
    EXPECT_THAT(report, ContainsRegex("\n[0-9]+ libc.so.6 . 0x"));

    // The address is relative to the file, independent of the load address.
    const auto firstFrame = [](const std::string &text) {
        const std::size_t start = text.find("\n0 ");
        return text.substr(start, text.find('\n', start + 1) - start);
    };
    std::filesystem::remove_all(home / ".local");
    EXPECT_EQ(firstFrame(reportOf("null", SIGSEGV)), firstFrame(report));
}

TEST_F(CrashHandler, StackThatOverflowsIsReportedWithItsFrames)
{
    const std::string report = reportOf("overflow", SIGSEGV);
    EXPECT_THAT(report, HasSubstr("\n100 crashing_program + 0x"));
}

TEST_F(CrashHandler, CrashInAnotherThreadIsReported)
{
    EXPECT_THAT(reportOf("thread", SIGSEGV), HasSubstr("Thread: not the main one\n"));
}

TEST_F(CrashHandler, CrashInSeveralThreadsAtOnceIsReportedOnce)
{
    for (int round = 0; round < 20; ++round) {
        EXPECT_THAT(reportOf("threads", SIGSEGV), HasSubstr("\n0 crashing_program + 0x"));
        std::filesystem::remove_all(home / ".local");
    }
}

TEST_F(CrashHandler, ReportHoldsNoPathNoEnvironmentNoCommandLineAndNothingOfMemory)
{
    for (const std::string way : {"exception", "text"}) {
        SCOPED_TRACE(way);
        ASSERT_TRUE(WIFSIGNALED(run(way)));
        ASSERT_EQ(reports().size(), 1U);
        const std::string report = textOf(reports().front());
        EXPECT_THAT(report, Not(HasSubstr("/")));
        EXPECT_THAT(report, Not(HasSubstr("SECRET")));
        EXPECT_THAT(report, Not(HasSubstr("544552434553"))); // the same bytes as an address
        EXPECT_THAT(report, Not(HasSubstr(way)));
        std::filesystem::remove_all(home / ".local");
    }
}

TEST_F(CrashHandler, SecondCrashInOneSecondDoesNotReplaceTheFirst)
{
    // With three, two share a second unless the machine is very slow.
    for (int round = 0; round < 3; ++round)
        ASSERT_TRUE(WIFSIGNALED(run("null")));
    EXPECT_EQ(reports().size(), 3U);
}

TEST_F(CrashHandler, FolderOfStateIsTheOneThatTheUserHasSet)
{
    stateHome = home / "elsewhere/state";
    static_cast<void>(reportOf("null", SIGSEGV));
    EXPECT_FALSE(home.has(".local"));
}

TEST_F(CrashHandler, RelativeFolderOfStateIsIgnored)
{
    stateHome = "state";
    ASSERT_TRUE(WIFSIGNALED(run("null")));
    stateHome.clear();
    EXPECT_EQ(reports().size(), 1U);
}

TEST_F(CrashHandler, FolderThatCannotBeMadeChangesNothing)
{
    home.writeText(".local/state", "a file");
    const int status = run("null");
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGSEGV);
    EXPECT_EQ(reports().size(), 0U);
}

TEST_F(CrashHandler, HomeThatIsMissingIsNotMade)
{
    homeVariable = home / "missing";
    const int status = run("null");
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGSEGV);
    EXPECT_FALSE(home.has("missing"));
}

TEST_F(CrashHandler, ReportIsNamedAfterTheExecutableWhateverItsName)
{
    program = home / "my \"program\"";
    std::filesystem::copy_file(CORVANE_CRASHING_PROGRAM, program);
    EXPECT_THAT(reportOf("null", SIGSEGV), StartsWith(R"({"app_name":"my__program_",)"));
    EXPECT_TRUE(reports().front().filename().string().starts_with("my \"program\"-"));
}

TEST_F(CrashHandler, FullDiskLeavesNoHalfReport)
{
    const int status = run("space");
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGSEGV);
    EXPECT_TRUE(home.has(".local/state/corvane/reports"));
    EXPECT_EQ(reports().size(), 0U);
}

TEST(CrashReportText, WhatDoesNotFitIsLeftOut)
{
    std::array<char, 4> buffer{};
    ReportText text{std::span(buffer)};
    text.add("abc").add("def").addDecimal(-7);
    EXPECT_EQ(text.written(), "abcd");
}

TEST(CrashReportText, NumbersAndTimesAreWritten)
{
    std::array<char, 200> buffer{};
    ReportText text{std::span(buffer)};
    text.addDecimal(0).add(" ").addDecimal(INT64_MIN).add(" ").addHexadecimal(0).add(" ").addHexadecimal(UINT64_MAX);
    text.add(" ").addTime(1795356909, "-", "").add(" ").addTime(951782400, " ", ":");
    EXPECT_EQ(text.written(), "0 -9223372036854775808 0x0 0xffffffffffffffff 2026-11-22-141509 2000-02-29 00:00:00");
}

TEST(ModuleFinder, AddressIsFoundByItsMappingHoweverThePiecesFall)
{
    const std::string maps =
        "555500000000-555500001000 r--p 00000000 08:01 77                        /home/who/my tools/corvane\n"
        "555500001000-555500003000 r-xp 00001000 08:01 77                        /home/who/my tools/corvane\n"
        "555500003000-555500004000 rw-p 00000000 00:00 0 \n"
        "7f0000002000-7f0000004000 r-xp 00002000 08:01 78                        /usr/lib/libQt6Core.so.6 (deleted)\n"
        "7ffd00000000-7ffd00002000 r-xp 00000000 00:00 0                          [vdso]\n";
    const std::vector<std::uintptr_t> numbers{0x555500001234, 0x555500003010, 0x7f0000003999,
                                              0x7ffd00000777, 0x10,           0x555500003000 - 1};
    std::vector<void *> addresses;
    for (const std::uintptr_t number : numbers)
        addresses.push_back(reinterpret_cast<void *>(number));
    for (const std::size_t size : {std::size_t{1}, std::size_t{7}, maps.size()}) {
        std::vector<Module> modules(addresses.size());
        ModuleFinder finder(addresses, modules);
        for (std::size_t at = 0; at < maps.size(); at += size)
            finder.take(std::string_view(maps).substr(at, size));
        const auto name = [&](std::size_t index) {
            return std::string(modules[index].name.data(), modules[index].nameSize);
        };
        EXPECT_EQ(name(0), "corvane");
        EXPECT_EQ(modules[0].offset, 0x1234U);
        EXPECT_EQ(name(1), "");
        EXPECT_EQ(name(2), "libQt6Core.so.6__deleted_");
        EXPECT_EQ(modules[2].offset, 0x3999U);
        EXPECT_EQ(name(3), "_vdso_");
        EXPECT_EQ(name(4), "");
        EXPECT_EQ(name(5), "corvane");
    }
}

} // namespace
} // namespace corvane
