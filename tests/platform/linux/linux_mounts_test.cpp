// What is mounted is never removed. Every mount is made in a mount namespace of its own, so it is seen by nobody
// else and goes with the sandbox.

#include "platform/linux/mounts.h"

#include <fcntl.h>
#include <gmock/gmock.h>

#include "platform/file_descriptor.h"
#include "platform/linux/probe_home.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

const std::string mountedThere = "16 Another disk is mounted there.";
const std::string mountedInside = "16 Another disk is mounted inside it.";

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

    /// What the probe answers where `original` is mounted a second time at `point`.
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
    EXPECT_EQ(removeWhereBound("home/USB", "home/USB"), mountedThere);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AFolderThatHoldsAFolderMountedASecondTimeIsRefusedBeforeAnythingGoes)
{
    EXPECT_EQ(removeWhereBound("home/work/m/mounted", "home/work"), mountedInside);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AFolderReachedThroughALinkIsJudgedByWhereItLies)
{
    m_home.folder.link("home/shortcut", "work/m");
    EXPECT_EQ(removeWhereBound("home/work/m/mounted", "home/shortcut/mounted"), mountedThere);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AMountPointWithBlanksInItsNameIsRecognised)
{
    m_home.folder.makeFolder("home/work/my \\040 disk\n");
    EXPECT_EQ(removeWhereBound("home/work/my \\040 disk\n", "home/work"), mountedInside);
    expectNothingIsGone();
}

TEST_P(LinuxMounts, AnotherFileSystemIsNotEmptied)
{
    const std::string point = m_home.folder / "home/work/m/mounted";
    const std::string answer = m_home.runSandboxed(
        {"--tmpfs", point}, "cd '" + point + "'; echo kept > item\n" + "$probe " + GetParam() + " '" + point +
                                "'\n$probe " + GetParam() + " '" + m_home.folder / "home/work" + "'\ncat item");
    EXPECT_EQ(answer, mountedThere + "\n" + mountedInside + "\nkept");
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
    EXPECT_EQ(answer, "2 The system does not tell which disks are mounted.\ndone");
    EXPECT_FALSE(m_home.folder.has("home/file"));
    expectNothingIsGone();
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

INSTANTIATE_TEST_SUITE_P(Removal, LinuxMounts, ::testing::Values("trash", "erase"),
                         [](const auto &question) { return question.param; });

} // namespace
} // namespace corvane
