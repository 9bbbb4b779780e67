// Mounted file systems are never removed. Every mount is made in a private mount namespace, which disappears with the
// sandbox.

#include "platform/mount.h"

#include <fcntl.h>
#include <gmock/gmock.h>

#include "platform/file_descriptor.h"
#include "platform/linux/probe_home.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

const std::string mountedThere = ": Another disk is mounted there.";
const std::string mountedInside = ": Another disk is mounted inside it.";

class LinuxMounts : public ::testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        if (!ProbeHome::canSandbox())
            GTEST_SKIP() << "bwrap cannot make a sandbox here";
        m_home.folder.writeText("home/original/precious", "kept");
        m_home.folder.writeText("home/work/a/file", "x");
        m_home.folder.writeText("home/work/z/file", "x");
        m_home.folder.makeFolder("home/work/m/mounted");
        m_home.folder.makeFolder("home/USB");
    }

    /// The probe's answer when `original` is bind-mounted at `point`.
    std::string removeWhereBound(const std::string &point, const std::string &item) const
    {
        return m_home.runSandboxed({"--bind", m_home.folder / "home/original", m_home.folder / point},
                                   "$probe " + GetParam() + " '" + m_home.folder / item + "'");
    }

    void expectNothingIsGone() const
    {
        for (const char *item :
             {"home/original/precious", "home/work/a/file", "home/work/z/file", "home/work/m/mounted"})
            EXPECT_TRUE(m_home.folder.has(item)) << item;
        EXPECT_FALSE(m_home.folder.has("home/data/Trash/files/work"));
        EXPECT_FALSE(m_home.folder.has("home/data/Trash/files/USB"));
    }

    const ProbeHome m_home;
};

TEST_P(LinuxMounts, AFolderMountedASecondTimeIsNotRemovedThere)
{
    EXPECT_EQ(removeWhereBound("home/USB", "home/USB"), "USB" + mountedThere);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AFolderThatHoldsAFolderMountedASecondTimeIsRefusedBeforeAnythingGoes)
{
    EXPECT_EQ(removeWhereBound("home/work/m/mounted", "home/work"), "work" + mountedInside);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AFolderReachedThroughALinkIsJudgedByWhereItLies)
{
    m_home.folder.link("home/shortcut", "work/m");
    EXPECT_EQ(removeWhereBound("home/work/m/mounted", "home/shortcut/mounted"), "mounted" + mountedThere);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AMountPointWithBlanksInItsNameIsRecognised)
{
    m_home.folder.makeFolder("home/work/my \\040 disk\n");
    EXPECT_EQ(removeWhereBound("home/work/my \\040 disk\n", "home/work"), "work" + mountedInside);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AnotherFileSystemIsNotEmptied)
{
    const std::string point = m_home.folder / "home/work/m/mounted";
    const std::string answer = m_home.runSandboxed(
        {"--tmpfs", point}, "cd '" + point + "'; echo kept > item\n" + "$probe " + GetParam() + " '" + point +
                                "'\n$probe " + GetParam() + " '" + m_home.folder / "home/work" + "'\ncat item");
    EXPECT_EQ(answer, "mounted" + mountedThere + "\nwork" + mountedInside + "\nkept");
    expectNothingIsGone();
}

TEST_P(LinuxMounts, ANeighbourWhoseNameOnlyBeginsLikeAMountPointGoes)
{
    m_home.folder.writeText("home/US/file", "x");
    EXPECT_EQ(removeWhereBound("home/USB", "home/US"), "done");
    EXPECT_FALSE(m_home.folder.has("home/US"));
    expectNothingIsGone();
}

TEST_P(LinuxMounts, WhereTheMountsCannotBeToldNoFolderGoesButAFileDoes)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizers need /proc";
#endif
    m_home.folder.writeText("home/file", "x");
    const std::string answer = m_home.runSandboxed(
        {"--tmpfs", "/proc"}, "$probe " + GetParam() + " '" + m_home.folder / "home/work" + "'\n$probe " + GetParam() +
                                  " '" + m_home.folder / "home/file" + "'");
    EXPECT_EQ(answer, "work: The system does not report which disks are mounted.\ndone");
    EXPECT_FALSE(m_home.folder.has("home/file"));
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AProtectedFolderThatIsMountedASecondTimeIsRecognised)
{
    m_home.folder.writeText("home/.ssh/key", "kept");
    m_home.folder.makeFolder("home/second");
    const std::string answer =
        m_home.runSandboxed({"--bind", m_home.folder / "home/.ssh", m_home.folder / "home/second"},
                            "$probe " + GetParam() + " '" + m_home.folder / "home/second/key'");
    EXPECT_EQ(answer, "key: protected location");
    EXPECT_TRUE(m_home.folder.has("home/.ssh/key"));
}

TEST_P(LinuxMounts, AFolderInsideAProtectedOneThatIsMountedASecondTimeIsRecognised)
{
    m_home.folder.writeText("home/.ssh/keys/id", "kept");
    m_home.folder.makeFolder("home/second");
    const std::string answer =
        m_home.runSandboxed({"--bind", m_home.folder / "home/.ssh/keys", m_home.folder / "home/second"},
                            "$probe " + GetParam() + " '" + m_home.folder / "home/second/id'");
    EXPECT_EQ(answer, "id: protected location");
    EXPECT_TRUE(m_home.folder.has("home/.ssh/keys/id"));
}

TEST_P(LinuxMounts, AHomeThatIsMountedASecondTimeIsRecognised)
{
    m_home.folder.writeText("home/.ssh/key", "kept");
    m_home.folder.writeText("home/Documents/letter", "kept");
    const std::string second = m_home.folder.makeFolder("second");
    const std::string answer = m_home.runSandboxed({"--bind", m_home.folder.path(), second},
                                                   "for item in home home/.ssh/key home/Documents; do $probe " +
                                                       GetParam() + " '" + second + "'/$item; done");
    EXPECT_EQ(answer, "home: protected location\nkey: protected location\nDocuments: protected location");
    EXPECT_TRUE(m_home.folder.has("home/.ssh/key"));
    EXPECT_TRUE(m_home.folder.has("home/Documents/letter"));
}

std::optional<Mount> mountOf(const std::string &folder)
{
    return Mount::of(FileDescriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)).number());
}

TEST(LinuxMount, FoldersOfOneMountAreTheSameAndThoseOfAnotherAreNot)
{
    const TemporaryFolder folder;
    const auto top = mountOf(folder.path());
    const auto inside = mountOf(folder.makeFolder("inside"));
    const auto kernels = mountOf("/proc");
    ASSERT_TRUE(top && inside && kernels);
    EXPECT_TRUE(top->isSameAs(*inside));
    EXPECT_FALSE(top->isSameAs(*kernels));
}

TEST(LinuxMount, OfNothingIsUnknown)
{
    EXPECT_FALSE(Mount::of(-1));
}

INSTANTIATE_TEST_SUITE_P(Removal, LinuxMounts, ::testing::Values("remove", "remove-permanently"),
                         [](const auto &question) { return question.param == "remove" ? "Trash" : "Permanent"; });

TEST(LinuxMountPoints, ADiskThatIsMountedAfterTheyWereReadIsAmongThem)
{
    ProbeHome home;
    if (!home.canMountDisks())
        GTEST_SKIP() << "this user or machine cannot mount a disk image";
    EXPECT_EQ(home.runOnDisk("mkdir usb; MEANWHILE='mount -t tmpfs none usb' $probe mount-meanwhile \"$PWD/usb\""),
              "a folder\na mount point");
}

} // namespace
} // namespace corvane
