#include <algorithm>
#include <filesystem>
#include <string>

#include "cli/commands/scan_fixture.h"
#include "platform/system_kind.h"

namespace corvane {
namespace {

using nlohmann::json;

TEST_F(ScanCommandTest, APathThatDoesNotExistIsRefused)
{
    const ProgramResult result = run({"scan", "nowhere/at/all"});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.errors, "corvane-cli: " + m_folder / "nowhere/at/all" +
                                 " does not exist; the nearest folder that does is " + m_folder.path() + "\n");
}

TEST_F(ScanCommandTest, AFileIsRefused)
{
    m_folder.writeText("tree/note.txt", "x");

    for (const char *const path : {"tree/note.txt", "tree/note.txt/"}) {
        const ProgramResult result = run({"scan", path});
        EXPECT_EQ(result.exitStatus, 2);
        EXPECT_EQ(result.errors, "corvane-cli: " + m_folder / "tree/note.txt" +
                                     " is a file, not a folder; its folder is " + m_folder / "tree" + "\n");
    }
    EXPECT_EQ(run({"scan", "tree/note.txt/deeper"}).exitStatus, 2);
}

TEST_F(ScanCommandTest, ADanglingLinkIsRefused)
{
    m_folder.link("link", m_folder / "gone");

    const ProgramResult result = run({"scan", "link"});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: " + m_folder / "link" +
                                 " is a link to something that does not exist; give an existing folder\n");
}

TEST_F(ScanCommandTest, ALinkToAFileAndALinkInACircleAreRefused)
{
    m_folder.writeText("note.txt", "x");
    m_folder.link("toFile", m_folder / "note.txt");
    m_folder.link("circle", m_folder / "circle");

    for (const char *const path : {"toFile", "circle"}) {
        const ProgramResult result = run({"scan", path});
        EXPECT_EQ(result.exitStatus, 2);
        EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    }
}

TEST_F(ScanCommandTest, AnEmptyPathIsRefused)
{
    const ProgramResult result = run({"scan", ""});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: the path is empty; \".\" is the current folder\n");
}

TEST_F(ScanCommandTest, APathThatIsTooLongIsRefused)
{
    const ProgramResult result = run({"scan", std::string(300, 'x')});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
}

TEST_F(ScanCommandTest, ACurrentFolderThatIsGoneIsNamed)
{
    m_folder.makeFolder("gone");

    const ProgramResult result = program({"scan", "."})
                                     .in(m_folder / "gone")
                                     .through({"/bin/sh", "-c", "rmdir ../gone; exec \"$0\" \"$@\""})
                                     .run();

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: the current folder does not exist any more; give an absolute path\n");
}

TEST_F(ScanCommandTest, AFolderThatCannotBeReadSaysWhoseItIs)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can make a folder of root's";
    if (std::filesystem::exists(macSystemFile))
        GTEST_SKIP() << "no owner is told on a Mac";
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();
    ASSERT_EQ(::chown((m_folder / "closed").c_str(), 0, 0), 0);

    const ProgramResult result = program({"scan", "closed"}).asOrdinaryUser().run();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors,
              "corvane-cli: cannot read " + m_folder / "closed" + ": Permission denied; it belongs to root\n");
}

TEST_F(ScanCommandTest, AnUnreadableFolderGivesAnEmptyResultAndIsNamed)
{
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();

    const ProgramResult result = program({"scan", "closed", "--json"}).asOrdinaryUser().run();

    const json scan = parsed(result, 1);
    EXPECT_EQ(scan["root"]["unreadable"], true);
    EXPECT_EQ(scan["unreadable"], 1);
    EXPECT_EQ(scan["bytes"], 0);
    EXPECT_EQ(result.errors, "corvane-cli: cannot read " + m_folder / "closed" + ": Permission denied\n");

    const ProgramResult table = program({"scan", "closed"}).asOrdinaryUser().run();
    EXPECT_EQ(table.exitStatus, 1);
    EXPECT_NE(table.out.find("Can't read this folder\n"), std::string::npos) << table.out;
    EXPECT_EQ(table.errors, result.errors);
}

TEST_F(ScanCommandTest, AFolderBehindAClosedOneIsRefused)
{
    m_folder.makeFolder("closed/inner");
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();

    const ProgramResult result = program({"scan", "closed/inner"}).asOrdinaryUser().run();

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.errors, "corvane-cli: cannot access " + m_folder / "closed/inner" + ": Permission denied\n");
}

TEST_F(ScanCommandTest, AnUnreadableFolderInsideIsNoFailure)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);
    m_folder.makeUnreadable("tree/closed");
    openToOrdinaryUser();

    const ProgramResult result = program({"scan", "tree", "--json"}).asOrdinaryUser().run();

    const json scan = parsed(result, 0);
    EXPECT_EQ(scan["root"]["children"].size(), 1u);
    EXPECT_EQ(scan["unreadable"], 0);
    EXPECT_EQ(scan["denied"], 1);
    EXPECT_EQ(result.errors, "");

    const ProgramResult table = program({"scan", "tree"}).asOrdinaryUser().run();
    EXPECT_NE(table.out.find("\n1 folder could not be opened\n"), std::string::npos) << table.out;
}

} // namespace
} // namespace corvane
