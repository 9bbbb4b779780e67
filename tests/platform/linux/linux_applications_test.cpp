#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/file_descriptor.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/probe_home.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::string identifier = "org.example.app";

ProgramMarks marks(const std::string &bundlePath)
{
    return {.bundleID = identifier, .bundlePath = bundlePath, .flatpak = {}, .snap = {}};
}

/// A shell script that prints "ready", then the name of every signal it receives, and keeps running.
constexpr const char *listening =
    "trap 'echo TERM' TERM; trap 'echo WINCH' WINCH; echo ready; while true; do read line; done";

/// A child process, killed by the destructor. Its standard output is a pipe, and its standard input stays open while it
/// runs.
class Child {
public:
    explicit Child(std::vector<std::string> arguments)
    {
        std::array<int, 2> input{};
        std::array<int, 2> output{};
        if (::pipe2(input.data(), O_CLOEXEC) != 0 || ::pipe2(output.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe2");
        m_input = FileDescriptor(input[1]);
        m_output = FileDescriptor(output[0]);
        const FileDescriptor itsInput(input[0]);
        const FileDescriptor itsOutput(output[1]);
        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, itsInput.number(), STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, itsOutput.number(), STDOUT_FILENO);
        std::vector<char *> pointers;
        for (std::string &argument : arguments)
            pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        const int failure = ::posix_spawn(&m_number, pointers[0], &actions, nullptr, pointers.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (failure != 0)
            throw std::system_error(failure, std::generic_category(), arguments.front());
    }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    ~Child()
    {
        if (m_number == 0)
            return;
        ::kill(m_number, SIGKILL);
        ::waitpid(m_number, nullptr, 0);
    }

    [[nodiscard]] pid_t number() const { return m_number; }
    void signal(int number) const { ::kill(m_number, number); }

    /// The next line of its output; empty at the end of the output.
    [[nodiscard]] std::string line() const
    {
        // A shell handles a pending signal only after its current read returns.
        EXPECT_EQ(::write(m_input.number(), "\n", 1), 1);
        std::string text;
        char character = '\0';
        while (::read(m_output.number(), &character, 1) == 1 && character != '\n')
            text += character;
        return text;
    }

    /// Waits for its end without reaping it, so that it remains a zombie.
    void waitForEnd() const
    {
        siginfo_t facts{};
        ::waitid(P_PID, static_cast<id_t>(m_number), &facts, WEXITED | WNOWAIT);
    }

    /// Waits for its end and returns the signal that killed it.
    [[nodiscard]] int endingSignal()
    {
        int status = 0;
        ::waitpid(std::exchange(m_number, 0), &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t m_number = 0;
    FileDescriptor m_input;
    FileDescriptor m_output;
};

/// Bundles whose executables are copies of system programs.
class LinuxApplicationsTest : public testing::Test {
protected:
    /// Copies a system program to a path in the test's folder.
    std::string program(const std::string &relative, const char *from) const
    {
        const std::string path = disk / relative;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::filesystem::copy_file(from, path);
        return path;
    }

    /// A process that ends at the first signal.
    std::vector<std::string> sleeper(const std::string &relative) const
    {
        return {program(relative, "/bin/sleep"), "1000"};
    }

    std::vector<std::string> listener(const std::string &relative) const
    {
        return {program(relative, "/bin/sh"), "-c", listening};
    }

    std::vector<std::int64_t> running(const std::string &relative)
    {
        return applications.running(marks(disk / relative));
    }
    void requestQuit(std::int64_t instance, const std::string &relative)
    {
        applications.requestQuit(instance, marks(disk / relative));
    }

    const TemporaryFolder disk;
    LinuxApplications applications;
};

TEST_F(LinuxApplicationsTest, AnInstanceIsAProcessWhoseExecutableLiesInTheBundle)
{
    disk.makeFolder("Foo.app/Contents/MacOS");
    EXPECT_THAT(running("Foo.app"), IsEmpty());
    const Child child(sleeper("Foo.app/Contents/MacOS/Foo"));
    EXPECT_THAT(running("Foo.app"), ElementsAre(child.number()));
    EXPECT_THAT(running("Missing.app"), IsEmpty());
}

TEST_F(LinuxApplicationsTest, AnInstanceThatIsAskedToQuitIsAskedPolitely)
{
    Child child(sleeper("Foo.app/Contents/MacOS/Foo"));
    requestQuit(child.number(), "Foo.app");
    EXPECT_EQ(child.endingSignal(), SIGTERM);
}

TEST_F(LinuxApplicationsTest, AnInstanceThatHasQuitDoesNotRun)
{
    const Child child(sleeper("Foo.app/Contents/MacOS/Foo"));
    requestQuit(child.number(), "Foo.app");
    child.waitForEnd();
    EXPECT_THAT(running("Foo.app"), IsEmpty());
}

TEST_F(LinuxApplicationsTest, AnInstanceThatIgnoresTheRequestGoesOnRunning)
{
    const Child child(listener("Foo.app/Contents/MacOS/Foo"));
    ASSERT_EQ(child.line(), "ready");
    requestQuit(child.number(), "Foo.app");
    EXPECT_EQ(child.line(), "TERM");
    EXPECT_THAT(running("Foo.app"), ElementsAre(child.number()));
}

TEST_F(LinuxApplicationsTest, EachOfTwoInstancesIsAskedForItself)
{
    const std::vector<std::string> program = sleeper("Foo.app/Contents/MacOS/Foo");
    Child one(program);
    const Child two(program);
    const Child helper(sleeper("Foo.app/Contents/Helpers/Helper"));
    EXPECT_THAT(running("Foo.app"), UnorderedElementsAre(one.number(), two.number(), helper.number()));
    requestQuit(one.number(), "Foo.app");
    EXPECT_EQ(one.endingSignal(), SIGTERM);
    EXPECT_THAT(running("Foo.app"), UnorderedElementsAre(two.number(), helper.number()));
}

TEST_F(LinuxApplicationsTest, APathThatOnlySharesThePrefixIsOutsideTheBundle)
{
    disk.makeFolder("Foo.app/Contents/MacOS");
    const Child other(listener("Foo.app2/Contents/MacOS/Foo"));
    ASSERT_EQ(other.line(), "ready");
    EXPECT_THAT(running("Foo.app"), IsEmpty());

    requestQuit(other.number(), "Foo.app");
    other.signal(SIGWINCH);
    EXPECT_EQ(other.line(), "WINCH") << "and no request before it";
}

TEST_F(LinuxApplicationsTest, ANumberThatBelongsToAnotherProcessByNowIsLeftAlone)
{
    disk.makeFolder("Foo.app/Contents/MacOS");
    const Child other({"/bin/sh", "-c", listening});
    ASSERT_EQ(other.line(), "ready");
    requestQuit(other.number(), "Foo.app");
    other.signal(SIGWINCH);
    EXPECT_EQ(other.line(), "WINCH");
}

TEST_F(LinuxApplicationsTest, ANumberTooLargeForAProcessIsNotCutShort)
{
    const Child child(listener("Foo.app/Contents/MacOS/Foo"));
    ASSERT_EQ(child.line(), "ready");
    requestQuit((std::int64_t{1} << 32) + child.number(), "Foo.app");
    requestQuit(-child.number(), "Foo.app");
    child.signal(SIGWINCH);
    EXPECT_EQ(child.line(), "WINCH");
}

TEST_F(LinuxApplicationsTest, TheProgramItselfIsNeverAsked)
{
    const std::string ownFolder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_THAT(applications.running(marks(ownFolder)), testing::Not(testing::Contains(::getpid())));
    applications.requestQuit(::getpid(), marks(ownFolder)); // would end the test
}

TEST_F(LinuxApplicationsTest, ADeletedExecutableIsStillThatOfItsBundle)
{
    const std::vector<std::string> program = sleeper("Foo.app/Contents/MacOS/Foo");
    Child child(program);
    std::filesystem::remove(program.front());
    EXPECT_THAT(running("Foo.app"), ElementsAre(child.number()));
    requestQuit(child.number(), "Foo.app");
    EXPECT_EQ(child.endingSignal(), SIGTERM);
}

TEST_F(LinuxApplicationsTest, ABundleThatIsALinkRunsFromWhereItLeads)
{
    Child child(sleeper("opt/Foo.app/Contents/MacOS/Foo"));
    disk.link("Link.app", "opt/Foo.app");
    EXPECT_THAT(running("Link.app"), ElementsAre(child.number()));
    requestQuit(child.number(), "Link.app");
    EXPECT_EQ(child.endingSignal(), SIGTERM);
}

TEST_F(LinuxApplicationsTest, ALinkToTheWholeDiskIsNoBundle)
{
    disk.link("Root.app", "/");
    EXPECT_THAT(running("Root.app"), IsEmpty());
    const Child other(listener("Foo.app/Contents/MacOS/Foo"));
    ASSERT_EQ(other.line(), "ready");
    requestQuit(other.number(), "Root.app");
    other.signal(SIGWINCH);
    EXPECT_EQ(other.line(), "WINCH");
}

TEST_F(LinuxApplicationsTest, ALinkToAFolderThatIsNoBundleHasNoProgramsOfItsOwn)
{
    const Child other(listener("home/tools/editor"));
    ASSERT_EQ(other.line(), "ready");
    disk.link("Home.app", "home");
    EXPECT_THAT(running("Home.app"), IsEmpty());
    requestQuit(other.number(), "Home.app");
    other.signal(SIGWINCH);
    EXPECT_EQ(other.line(), "WINCH");
}

TEST_F(LinuxApplicationsTest, ANameMayHaveAnyBytes)
{
    const std::string name = "F\xff o\n\\040(deleted).app";
    Child child(sleeper(name + "/Contents/MacOS/F\xff"));
    EXPECT_THAT(running(name), ElementsAre(child.number()));
    requestQuit(child.number(), name);
    EXPECT_EQ(child.endingSignal(), SIGTERM);
}

TEST_F(LinuxApplicationsTest, AProcessOfAnotherUserIsNoInstance)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can start a process of another user";
    const std::string path = program("Foo.app/Contents/MacOS/Foo", "/bin/sleep");
    std::filesystem::permissions(disk.path(), std::filesystem::perms(0755));
    constexpr const char *nobody = "65534";
    const Child child({"/usr/bin/setpriv", "--reuid", nobody, "--clear-groups", "/bin/sh", "-c",
                       "echo ready; exec \"$0\" 1000", path});
    ASSERT_EQ(child.line(), "ready");
    const std::string executable = "/proc/" + std::to_string(child.number()) + "/exe";
    while (std::filesystem::read_symlink(executable) != path)
        ::usleep(1000);
    EXPECT_THAT(running("Foo.app"), IsEmpty());
}

TEST_F(LinuxApplicationsTest, NumbersOfAnotherNamespaceAreNotTaken)
{
    if (!ProbeHome::canSandbox())
        GTEST_SKIP() << "bubblewrap cannot run here";
    const std::string shell = program("Foo.app/Contents/MacOS/Foo", "/bin/sh");
    const ProbeHome home;
    const std::string script = "'" + shell + "' -c '\"$probe\" running \"" + disk / "Foo.app" + "\"; true'";
    EXPECT_EQ(home.runSandboxed({"--unshare-pid", "--proc", "/proc"}, script), "1");
    EXPECT_EQ(home.runSandboxed({"--unshare-pid"}, script), "0") << "\"/proc\" is that of the machine";
}

/// A fake of the kernel's process information. Nothing in it may be asked to quit, because the process ids exist.
class MadeUpProcessesTest : public testing::Test {
protected:
    MadeUpProcessesTest() { add("self", "/usr/bin/corvane"); }

    void add(const std::string &name, const std::string &executable, const std::string &cgroup = "0::/init.scope\n",
             const std::string &environment = {}, const std::string &numbers = "7",
             const std::string &user = std::to_string(::getuid())) const
    {
        disk.writeText(name + "/status", "Name:\tx\nUid:\t" + user + "\t" + user + "\nNSpid:\t" + numbers + "\n");
        disk.writeText(name + "/cgroup", cgroup);
        disk.writeText(name + "/environ", environment);
        std::filesystem::create_symlink(executable, disk / (name + "/exe"));
    }
    [[nodiscard]] std::vector<std::int64_t> running(const ProgramMarks &app) const
    {
        return LinuxApplications(disk.path()).running(app);
    }
    [[nodiscard]] std::vector<std::int64_t> runningFlatpak(const std::string &id) const
    {
        return running({.bundleID = id, .bundlePath = {}, .flatpak = id, .snap = {}});
    }
    [[nodiscard]] std::vector<std::int64_t> runningSnap(const std::string &name) const
    {
        return running({.bundleID = name, .bundlePath = {}, .flatpak = {}, .snap = name});
    }
    [[nodiscard]] std::vector<std::int64_t> runningPrograms(const std::vector<std::string> &programs) const
    {
        return running({.bundleID = {}, .bundlePath = {}, .flatpak = {}, .snap = {}, .programs = programs});
    }

    const TemporaryFolder disk;
};

TEST_F(MadeUpProcessesTest, AFlatpakIsRecognisedByItsControlGroup)
{
    const std::string slice = "0::/user.slice/user-1000.slice/app.slice/";
    add("11", "/app/bin/chart", slice + "app-flatpak-org.sea.Chart-4711.scope\n");
    add("12", "/app/bin/chart", slice + "app-flatpak-org.sea.Chart\\x2dDevel-4711.scope\n");
    add("13", "/app/bin/chart", slice + "app-flatpak-org.sea.Charts-4711.scope\n");
    add("14", "/app/bin/chart", slice + "app-flatpak-org.sea.Chart-Devel-4711.scope\n");
    EXPECT_THAT(runningFlatpak("org.sea.Chart"), ElementsAre(11));
    EXPECT_THAT(runningFlatpak("org.sea.Chart-Devel"), UnorderedElementsAre(12, 14));
    EXPECT_THAT(runningFlatpak("org.sea"), IsEmpty());
}

TEST_F(MadeUpProcessesTest, AFlatpakWithoutAControlGroupIsRecognisedByItsSandbox)
{
    add("11", "/app/bin/chart", "0::/\n", {}, "11\t2");
    disk.writeText("11/root/.flatpak-info", "[Application]\nname=org.sea.Chart\nruntime=x\n");
    add("12", "/app/bin/chart", "0::/\n", {}, "12");
    disk.writeText("12/root/.flatpak-info", "[Application]\nname=org.sea.Chart\n");
    add("13", "/app/bin/chart", "0::/\n", {}, "13\t2");
    ASSERT_EQ(::mkfifo((disk / "13/root.pipe").c_str(), 0600), 0);
    disk.makeFolder("13/root");
    std::filesystem::rename(disk / "13/root.pipe", disk / "13/root/.flatpak-info");
    EXPECT_THAT(runningFlatpak("org.sea.Chart"), ElementsAre(11));
}

TEST_F(MadeUpProcessesTest, ASnapIsRecognisedByItsControlGroup)
{
    add("21", "/snap/chart/1/bin/chart", "0::/user.slice/app.slice/snap.chart.chart-0a1b.scope\n");
    add("22", "/usr/bin/python3", "0::/user.slice/app.slice/snap.sea\\x2dchart.map-0a1b.scope\n");
    add("23", "/usr/bin/python3", "0::/system.slice/snap.charts.daemon.service\n");
    EXPECT_THAT(runningSnap("chart"), ElementsAre(21));
    EXPECT_THAT(runningSnap("sea-chart"), ElementsAre(22));
    EXPECT_THAT(runningSnap("sea"), IsEmpty());
}

TEST_F(MadeUpProcessesTest, AnAppImageIsRecognisedByItsMountPoint)
{
    const std::string image = "/home/u/Chart.AppImage";
    const std::string environment = std::string("HOME=/home/u") + '\0' + "APPIMAGE=" + image + '\0';
    add("31", image);
    add("32", "/tmp/.mount_ChartXy/usr/bin/chart", "0::/\n", environment);
    add("33", "/usr/bin/vim", "0::/\n", environment); // started by the application, but not part of it
    add("34", "/tmp/.mount_Other/usr/bin/other", "0::/\n", std::string("APPIMAGE=/home/u/Other.AppImage") + '\0');
    EXPECT_THAT(runningPrograms({image}), UnorderedElementsAre(31, 32));
}

TEST_F(MadeUpProcessesTest, APackageIsRecognisedByItsProgramsAndTheirFolders)
{
    add("41", "/usr/bin/chart");
    add("42", "/usr/lib/chart/helper (deleted)");
    add("43", "/usr/bin/charts");
    add("44", "/usr/lib/chart-other/x");
    EXPECT_THAT(runningPrograms({"/usr/bin/chart", "/usr/lib/chart"}), UnorderedElementsAre(41, 42));
}

TEST_F(MadeUpProcessesTest, FoldersOfEverybodyAreNobodysPrograms)
{
    add("51", "/usr/bin/chart");
    EXPECT_THAT(runningPrograms({"/", "/usr", ""}), IsEmpty());
}

TEST_F(MadeUpProcessesTest, ProcessesOfOtherUsersAreNone)
{
    add("61", "/usr/bin/chart", "0::/\n", {}, "61", std::to_string(::getuid() + 1));
    EXPECT_THAT(runningPrograms({"/usr/bin/chart"}), IsEmpty());
}

TEST_F(MadeUpProcessesTest, ASandboxSeesTheNumbersOfOthers)
{
    add("71", "/usr/bin/chart");
    disk.writeText("self/status", "NSpid:\t900\t2\n");
    EXPECT_THAT(runningPrograms({"/usr/bin/chart"}), IsEmpty());
}

TEST_F(LinuxApplicationsTest, NoBundleHasADateOfItsLastUse)
{
    disk.makeFolder("Foo.app");
    EXPECT_EQ(applications.lastUsed(disk / "Foo.app"), std::nullopt);
}

} // namespace
} // namespace corvane
