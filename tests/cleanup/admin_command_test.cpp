#include "cleanup/admin_command.h"

#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/fake_file_system.h"

namespace corvane {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A Linux system whose tools give the test's output.
class AdminCommandTest : public testing::Test {
protected:
    AdminCommandTest() { files.setHome("/home/me"); }

    void answer(const std::string &line, const std::string &output) { m_answers[line] = output; }

    std::vector<AdminCommand> find()
    {
        return findAdminCommands(files, [&](const std::string &tool, const std::vector<std::string> &arguments) {
            std::string line = tool;
            for (const std::string &argument : arguments)
                line += " " + argument;
            runs.push_back(line);
            const auto found = m_answers.find(line);
            return found == m_answers.end() ? std::nullopt : std::optional(found->second);
        });
    }
    void dockerTells(const std::string &kinds, const std::string &unnamed)
    {
        answer("/usr/bin/docker system df --format {{.Type}}\t{{.Reclaimable}}", kinds);
        answer("/usr/bin/docker images --filter dangling=true --format {{.Size}}", unnamed);
    }

    FakeFileSystem files;
    std::vector<std::string> runs;

private:
    std::map<std::string, std::string> m_answers;
};

constexpr std::int64_t megabyte = 1'024 * 1'024;

TEST_F(AdminCommandTest, WithoutTheirToolsNoneIsOfferedAndNothingIsRun)
{
    files.addFile("/var/cache/apt/archives/a.deb", 5'000);
    EXPECT_THAT(find(), IsEmpty());
    EXPECT_THAT(runs, IsEmpty());
}

TEST_F(AdminCommandTest, AMacHasNone)
{
    files.setSystemKind(SystemKind::mac);
    files.addFile("/usr/bin/apt", 1);
    files.addFile("/var/cache/apt/archives/a.deb", 5'000);
    EXPECT_THAT(find(), IsEmpty());
}

TEST_F(AdminCommandTest, APackageCacheFreesWhatItsFolderHolds)
{
    for (const char *tool : {"apt", "dnf", "pacman", "zypper"})
        files.addFile(std::string("/usr/bin/") + tool, 1);
    files.addFile("/var/cache/apt/archives/a.deb", 5'000);
    files.addFile("/var/cache/libdnf5/repo/b.rpm", 4'000);
    files.addFile("/var/cache/pacman/pkg/c.zst", 3'000);
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 3u) << "a cache that is empty is left out";
    EXPECT_EQ(commands[0], (AdminCommand{"apt", "Package cache", "Downloaded packages that are already installed.",
                                         "archivebox", CleanupTint::orange, "sudo apt clean", 5'000}));
    EXPECT_EQ(commands[1].command, "sudo dnf clean all");
    EXPECT_EQ(commands[2].command, "sudo pacman -Scc");
    EXPECT_EQ(bytesOf(commands), 12'000);
}

TEST_F(AdminCommandTest, TheJournalFreesWhatIsBeyondTheNewest)
{
    files.addFile("/usr/bin/journalctl", 1);
    answer("/usr/bin/journalctl --disk-usage", "Archived and active journals take up 1.0G in the file system.\n");
    EXPECT_THAT(find(),
                ElementsAre(AdminCommand{"journal", "System journal", "Old log entries. The newest 200 MB stay.",
                                         "doc.text.magnifyingglass", CleanupTint::gray,
                                         "sudo journalctl --vacuum-size=200M", (1'024 - 200) * megabyte}));
    answer("/usr/bin/journalctl --disk-usage", "Archived and active journals take up 200.0M in the file system.\n");
    EXPECT_THAT(find(), IsEmpty());
}

TEST_F(AdminCommandTest, TheFolderOfTheJournalMayTellMoreThanTheTool)
{
    files.addFile("/usr/bin/journalctl", 1);
    answer("/usr/bin/journalctl --disk-usage", "Archived and active journals take up 0B in the file system.\n");
    files.addFile("/var/log/journal/1/system.journal", 300 * megabyte);
    ASSERT_EQ(find().size(), 1u);
    EXPECT_EQ(find()[0].bytes, 100 * megabyte);
}

TEST_F(AdminCommandTest, ContainersFreeWhatAPruneRemoves)
{
    files.addFile("/usr/bin/docker", 1);
    dockerTells("Images\t10GB (90%)\nContainers\t1.5GB (10%)\nLocal Volumes\t7GB\nBuild Cache\t2GB\n",
                "500MB\n250kB\n");
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].command, "docker system prune");
    EXPECT_EQ(commands[0].bytes, 4'000'250'000);
    dockerTells("Images\t10GB\nContainers\t0B\nLocal Volumes\t0B\nBuild Cache\t0B\n", "");
    EXPECT_THAT(find(), IsEmpty()) << "nothing to free";
}

TEST_F(AdminCommandTest, ContainersOfAnotherComputerAreNotOffered)
{
    files.addFile("/usr/bin/docker", 1);
    files.addFolder("/var/lib/docker");
    dockerTells("Containers\t1GB\n", "");
    const std::string question = "/usr/bin/docker context inspect --format {{.Endpoints.docker.Host}}";
    for (const char *const elsewhere : {"ssh://deploy@server\n", "tcp://127.0.0.1:2375\n", "\n"}) {
        runs.clear();
        answer(question, elsewhere);
        EXPECT_THAT(find(), IsEmpty());
        EXPECT_THAT(runs, ElementsAre(question)) << "the other computer is asked nothing";
    }
    answer(question, "unix:///var/run/docker.sock\n");
    ASSERT_EQ(find().size(), 1u);
    EXPECT_EQ(find()[0].bytes, 1'000'000'000);
}

TEST_F(AdminCommandTest, WhereTheServiceDoesNotAnswerTheUserTheCommandOfTheAdministratorIsOffered)
{
    files.addFile("/usr/bin/docker", 1);
    EXPECT_THAT(find(), IsEmpty()) << "it has never been used";
    files.addFolder("/var/lib/docker");
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].command, "sudo docker system prune");
    EXPECT_EQ(commands[0].bytes, std::nullopt);
}

TEST_F(AdminCommandTest, OfEverySnapTheNewestEarlierRevisionStays)
{
    files.addFile("/usr/bin/snap", 1);
    answer("/usr/bin/snap list --all", "Name    Version  Rev   Tracking       Publisher   Notes\n"
                                       "core22  2024     1380  latest/stable  canonical   base,disabled\n"
                                       "core22  2024     1439  latest/stable  canonical   base\n"
                                       "editor  9.9      99    latest/stable  someone     disabled\n"
                                       "editor  10.0     100   latest/stable  someone     disabled\n"
                                       "editor  11.0     101   latest/stable  someone     -\n");
    files.addFile("/var/lib/snapd/snaps/core22_1380.snap", 70'000);
    files.addFile("/var/lib/snapd/snaps/editor_99.snap", 5'000);
    files.addFile("/var/lib/snapd/snaps/editor_100.snap", 6'000);
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].command, "sudo snap set system refresh.retain=2");
    EXPECT_EQ(commands[0].bytes, 5'000);
}

TEST_F(AdminCommandTest, OldKernelsFreeAllThatNothingNeeds)
{
    files.addFile("/usr/bin/apt-get", 1);
    const std::string simulation = "/usr/bin/apt-get --simulate -o Debug::NoLocking=true autoremove";
    answer(simulation, "Reading package lists...\nRemv libold1 [1.0]\n");
    EXPECT_THAT(find(), IsEmpty()) << "no kernel among them";
    answer(simulation, "Reading package lists...\nRemv linux-image-6.1.0-17-amd64 [6.1.69-1]\nRemv libold1 [1.0]\n");
    answer("/usr/bin/dpkg-query --show --showformat=${Installed-Size}\n linux-image-6.1.0-17-amd64 libold1",
           "400000\n24\n");
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].title, "Old kernels");
    EXPECT_EQ(commands[0].bytes, 400'024 * 1'024);
}

TEST_F(AdminCommandTest, AnAnswerCannotSlipAnOptionIntoAQuery)
{
    files.addFile("/usr/bin/apt-get", 1);
    answer("/usr/bin/apt-get --simulate -o Debug::NoLocking=true autoremove",
           "Remv linux-image-6.1 [6.1]\nRemv --admindir=/x [1]\n");
    static_cast<void>(find());
    EXPECT_THAT(runs.back(), AllOf(HasSubstr("linux-image-6.1"), Not(HasSubstr("admindir"))));
}

TEST_F(AdminCommandTest, OneKernelAloneIsNotOld)
{
    files.addFile("/usr/bin/dnf", 1);
    answer("/usr/bin/rpm -q kernel-core", "kernel-core-6.5-300.x86_64\n");
    EXPECT_THAT(find(), IsEmpty());
    answer("/usr/bin/rpm -q kernel-core", "kernel-core-6.5-300.x86_64\nkernel-core-6.6-100.x86_64\n");
    ASSERT_EQ(find().size(), 1u);
    EXPECT_EQ(find()[0].bytes, std::nullopt);
}

TEST_F(AdminCommandTest, UnusedAreTheRuntimesThatNoApplicationNeeds)
{
    files.addFile("/usr/bin/flatpak", 1);
    answer("/usr/bin/flatpak list --runtime --columns=ref,size", "org.gnome.Platform/x86_64/44\t1.0\xC2\xA0GB\n"
                                                                 "org.gnome.Platform/x86_64/45\t1.1\xC2\xA0GB\n"
                                                                 "org.gnome.Platform.Locale/x86_64/45\t9.0\xC2\xA0MB\n"
                                                                 "org.gnome.Sdk/x86_64/45\t2.0\xC2\xA0GB\n");
    answer("/usr/bin/flatpak list --app --columns=runtime", "org.gnome.Platform/x86_64/45\n");
    answer("/usr/bin/flatpak pin", "Pinned patterns:\n    runtime/org.gnome.Sdk/x86_64/45\n");
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 1u);
    EXPECT_EQ(commands[0].command, "flatpak uninstall --unused");
    EXPECT_EQ(commands[0].bytes, 1'000'000'000);
    answer("/usr/bin/flatpak list --app --columns=runtime",
           "org.gnome.Platform/x86_64/45\norg.gnome.Platform/x86_64/44\n");
    EXPECT_THAT(find(), IsEmpty());
}

TEST_F(AdminCommandTest, TheLargestComesFirstAndWhatIsNotKnownLast)
{
    files.addFile("/usr/bin/docker", 1);
    files.addFolder("/var/lib/docker");
    files.addFile("/usr/bin/apt", 1);
    files.addFile("/var/cache/apt/archives/a.deb", 5'000);
    files.addFile("/usr/bin/coredumpctl", 1);
    files.addFile("/var/lib/systemd/coredump/core", 9'000);
    const std::vector<AdminCommand> commands = find();
    ASSERT_EQ(commands.size(), 3u);
    EXPECT_EQ(commands[0].id, "coredumps");
    EXPECT_EQ(commands[1].id, "apt");
    EXPECT_EQ(commands[2].id, "docker");
}

TEST_F(AdminCommandTest, NothingThatNeedsAPrivilegeIsEverRun)
{
    for (const CommandDefinition &command : cleanupTableOf(SystemKind::linuxSystem).commands) {
        if (!files.has(std::string(command.tool)))
            files.addFile(std::string(command.tool), 1);
    }
    static_cast<void>(find());
    const std::vector<std::string> questions{
        "/usr/bin/docker context inspect --format {{.Endpoints.docker.Host}}",
        "/usr/bin/docker system df --format {{.Type}}\t{{.Reclaimable}}",
        "/usr/bin/docker images --filter dangling=true --format {{.Size}}",
        "/usr/bin/podman system df --format {{.Type}}\t{{.Reclaimable}}",
        "/usr/bin/podman images --filter dangling=true --format {{.Size}}",
        "/usr/bin/flatpak list --runtime --columns=ref,size",
        "/usr/bin/flatpak list --app --columns=runtime",
        "/usr/bin/flatpak pin",
        "/usr/bin/journalctl --disk-usage",
        "/usr/bin/snap list --all",
        "/usr/bin/apt-get --simulate -o Debug::NoLocking=true autoremove",
        "/usr/bin/rpm -q kernel-core",
    };
    EXPECT_THAT(runs, testing::UnorderedElementsAreArray(questions));
}

TEST_F(AdminCommandTest, OnceStoppedNoToolIsAsked)
{
    files.addFile("/usr/bin/journalctl", 1);
    const StopFlag stop{true};
    EXPECT_THAT(findAdminCommands(
                    files,
                    [](const std::string &, const std::vector<std::string> &) -> std::optional<std::string> {
                        ADD_FAILURE();
                        return std::nullopt;
                    },
                    stop),
                IsEmpty());
}

} // namespace
} // namespace corvane
