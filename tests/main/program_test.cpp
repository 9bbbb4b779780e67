#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "cli/program.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

/// The window's program, up to the point where it needs a window.
class WindowProgramTest : public testing::Test {
protected:
    Program program(std::vector<std::string> arguments) const
    {
        return Program(std::move(arguments))
            .at(CORVANE_PROGRAM)
            .with("HOME", m_folder.path())
            .with("QT_QPA_PLATFORM", "offscreen")
            .with("QT_QUICK_BACKEND", "software")
            .in(m_folder.path());
    }
    ProgramResult run(std::vector<std::string> arguments) const { return program(std::move(arguments)).run(); }

    TemporaryFolder m_folder;
};

TEST_F(WindowProgramTest, AFolderThatDoesNotExistIsNamed)
{
    const ProgramResult result = run({"/nope/a"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.errors, "corvane: /nope/a does not exist; the nearest folder that does is /\n");
}

TEST_F(WindowProgramTest, AFileIsNamedWithItsFolder)
{
    m_folder.writeText("file\x1b", "");
    const ProgramResult result = run({"file\x1b"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane: " + m_folder.path() + "/file␛ is a file, not a folder; its folder is " +
                                 m_folder.path() + "\n");
}

TEST_F(WindowProgramTest, AnAddressOfAnotherComputerIsRefused)
{
    const ProgramResult result = run({"sftp://host/files"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane: sftp://host/files is not on a disk of this computer; mount it and give the "
                             "folder where it is mounted\n");
}

// In this case nobody would see an error line.
TEST_F(WindowProgramTest, StartedFromAMenuTheWindowOpensWhateverTheFolder)
{
    constexpr int endedByTimeout = 124;
    const ProgramResult result =
        program({"/nope/a"}).with("DESKTOP_STARTUP_ID", "menu-1").through({"/usr/bin/timeout", "2"}).run();
    EXPECT_EQ(result.exitStatus, endedByTimeout);
    EXPECT_EQ(result.errors, "");
}

TEST_F(WindowProgramTest, WithoutADisplayOneLineSaysWhatIsMissing)
{
    const ProgramResult none = program({}).with("QT_QPA_PLATFORM", "none").run();
    EXPECT_EQ(none.exitStatus, 1);
    EXPECT_EQ(none.errors, "corvane: there is no display to open a window on\n");
    const ProgramResult wayland =
        program({}).with("QT_QPA_PLATFORM", "none").with("WAYLAND_DISPLAY", "wayland-7").run();
    EXPECT_EQ(wayland.exitStatus, 1);
    EXPECT_EQ(wayland.errors, "corvane: no window can be opened on this Wayland display; is qt6-wayland installed?\n");
}

TEST_F(WindowProgramTest, ArgumentsAreCheckedWithoutADisplay)
{
    const auto runWithoutDisplay = [this](std::vector<std::string> arguments) {
        return program(std::move(arguments)).with("QT_QPA_PLATFORM", "none").run();
    };
    const ProgramResult option = runWithoutDisplay({"--nonsense"});
    EXPECT_EQ(option.exitStatus, 2);
    EXPECT_EQ(option.errors, "corvane: unknown option --nonsense (see corvane --help)\n");
    const ProgramResult folders = runWithoutDisplay({"-platform", "xcb", "a", "b"});
    EXPECT_EQ(folders.exitStatus, 2);
    EXPECT_EQ(folders.errors, "corvane: expected at most one folder (see corvane --help)\n");
    const ProgramResult missing = runWithoutDisplay({"/nope/a"});
    EXPECT_EQ(missing.exitStatus, 2);
    EXPECT_EQ(missing.errors, "corvane: /nope/a does not exist; the nearest folder that does is /\n");
    for (const char *const question : {"--help", "--version"}) {
        const ProgramResult answer = runWithoutDisplay({question});
        EXPECT_EQ(answer.exitStatus, 0);
        EXPECT_EQ(answer.errors, "");
        EXPECT_TRUE(answer.out.find("corvane") != std::string::npos) << answer.out;
    }
}

TEST_F(WindowProgramTest, AMistypedOptionIsAnsweredWithTheNearestOne)
{
    const ProgramResult result = run({"--hlep"});
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane: unknown option --hlep; did you mean --help? (see corvane --help)\n");
}

} // namespace
} // namespace corvane
