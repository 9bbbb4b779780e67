#include <csignal>
#include <fstream>
#include <string>

#include "cli/cli_test.h"
#include "cli/terminal_program.h"

namespace corvane {

namespace {

using nlohmann::json;

class TerminalTest : public CliTest {
protected:
    /// Runs it through a shell that redirects only standard output to a file.
    [[nodiscard]] Program withOutputInFile(std::vector<std::string> arguments) const
    {
        return program(std::move(arguments)).through({"/bin/sh", "-c", "exec \"$0\" \"$@\" > out.json"});
    }

    [[nodiscard]] json outputFile() const
    {
        std::ifstream file(m_folder / "out.json");
        return json::parse(file, nullptr, false);
    }
};

TEST_F(TerminalTest, ColoursFollowWhatTheTerminalCan)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult palette = TerminalProgram(program({"scan", "tree"})).finish();
    EXPECT_EQ(palette.exitStatus, 0);
    EXPECT_NE(palette.out.find("\x1b[38;5;"), std::string::npos) << palette.out;

    const ProgramResult full = TerminalProgram(program({"scan", "tree"}).with("COLORTERM", "truecolor")).finish();
    EXPECT_NE(full.out.find("\x1b[38;2;158;92;245m"), std::string::npos) << full.out;
}

TEST_F(TerminalTest, NoColorGivesPlainText)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult plain = TerminalProgram(program({"scan", "tree"}).with("NO_COLOR", "1")).finish();
    EXPECT_EQ(plain.out.find("\x1b[3"), std::string::npos) << plain.out;
    EXPECT_EQ(plain.out.find("\x1b[1m"), std::string::npos) << plain.out;

    const ProgramResult empty = TerminalProgram(program({"scan", "tree"}).with("NO_COLOR", "")).finish();
    EXPECT_NE(empty.out.find("\x1b[1m"), std::string::npos) << empty.out;
}

TEST_F(TerminalTest, ADumbTerminalGetsNothingButText)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult result = TerminalProgram(program({"scan", "tree"}).with("TERM", "dumb")).finish();

    EXPECT_EQ(result.out.find('\x1b'), std::string::npos) << result.out;
}

TEST_F(TerminalTest, NamesAreCutToTheTerminalsWidth)
{
    m_folder.writeFile("tree/" + std::string(120, 'n') + ".mov", 1'200'000);

    const ProgramResult result = TerminalProgram(program({"scan", "tree"}).with("NO_COLOR", "1")).finish();

    // 100 columns, of which 42 come before the name.
    EXPECT_NE(result.out.find("  " + std::string(57, 'n') + "…\r\n"), std::string::npos) << result.out;
}

TEST_F(TerminalTest, ADocumentIsAloneOnStandardOutput)
{
    m_folder.writeFile("tree/film.mov", 1'200'000);

    const ProgramResult result = TerminalProgram(withOutputInFile({"scan", "tree", "--json"})).finish();

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(outputFile()["files"], 1);
    EXPECT_TRUE(result.out.empty() || result.out.ends_with("\r\x1b[K")) << result.out; // at most a cleared line
}

TEST_F(TerminalTest, RemovalAsksAndAYesRemoves)
{
    m_folder.writeFile("old.iso", 2'000'000);
    m_folder.writeFile("build/big.o", 3'000'000);
    TerminalProgram terminal(program({"remove", "old.iso", "build", "build/big.o"}));

    ASSERT_TRUE(terminal.waitFor("Move 2 items (5 MB) to Trash? [y/N] "));
    EXPECT_TRUE(m_folder.has("old.iso"));
    terminal.type("y\n");
    const ProgramResult result = terminal.finish();

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("Selected for removal\r\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("      2 MB  " + m_folder / "old.iso" + "\r\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("      3 MB  " + m_folder / "build" + "\r\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("Moved 2 items (5 MB) to Trash"), std::string::npos) << result.out;
    EXPECT_FALSE(m_folder.has("old.iso"));
    EXPECT_FALSE(m_folder.has("build"));
}

TEST_F(TerminalTest, EverythingButYesIsANo)
{
    m_folder.writeText("kept.txt", "x");

    for (const char *const answer : {"\n", "n\n", "no\n", "yesterday\n", " \n", "\x04"}) {
        TerminalProgram terminal(program({"remove", "--permanently", "kept.txt"}));
        ASSERT_TRUE(terminal.waitFor("Permanently? [y/N] "));
        terminal.type(answer);
        const ProgramResult result = terminal.finish();
        EXPECT_EQ(result.exitStatus, 0);
        EXPECT_NE(result.out.find("Nothing was removed"), std::string::npos) << result.out;
        EXPECT_TRUE(m_folder.has("kept.txt"));
    }
}

TEST_F(TerminalTest, AnAnswerThatEndsBeforeItsLineIsANo)
{
    m_folder.writeFile("kept.txt", 10);
    TerminalProgram terminal(program({"remove", "--permanently", "kept.txt"}));
    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.type("y\x04\x04"); // Ctrl-D sends the letter, and then the end of the input
    const ProgramResult result = terminal.finish();
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("Nothing was removed"), std::string::npos) << result.out;
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(TerminalTest, ATerminalThatIsClosedAtTheQuestionIsANo)
{
    m_folder.writeFile("kept.txt", 10);
    TerminalProgram terminal(program({"remove", "--permanently", "--json", "kept.txt"})
                                 .through({"/bin/sh", "-c", "trap '' HUP; exec \"$0\" \"$@\" > out.json 2> errors"}));
    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.hangUp();
    EXPECT_EQ(terminal.finish().exitStatus, 0);
    EXPECT_EQ(outputFile()["message"], "Nothing was removed");
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(TerminalTest, DeletingForGoodSaysSoBeforehand)
{
    m_folder.writeFile("old.iso", 2'000'000);
    TerminalProgram terminal(program({"remove", "--permanently", "old.iso"}));

    ASSERT_TRUE(terminal.waitFor("Permanently delete 1 item?\r\n"
                                 "These items will be erased immediately and can't be recovered from the Trash.\r\n"
                                 "Delete 2 MB Permanently? [y/N] "));
    terminal.type("YES\n");

    EXPECT_EQ(terminal.finish().exitStatus, 0);
    EXPECT_FALSE(m_folder.has("old.iso"));
}

TEST_F(TerminalTest, TheQuestionNamesWhatStaysAndWhatIsDeletedForGood)
{
    REQUIRE_OWN_HOME();
    m_folder.makeFolder("home/Documents");
    m_folder.writeText("data/Trash/files/old.txt", "x");
    TerminalProgram terminal(program({"remove", "home/Documents", "data/Trash/files/old.txt"}));

    ASSERT_TRUE(terminal.waitFor("Move 1 item ("));
    terminal.type("n\n");
    const std::string screen = terminal.finish().out;

    EXPECT_NE(screen.find("\r\n1 of them is in the Trash and will be deleted permanently\r\nMove 1 item ("),
              std::string::npos)
        << screen;
    EXPECT_NE(screen.find("         –  " + m_folder / "home/Documents" + "  (protected location: stays)\r\n"),
              std::string::npos)
        << screen;
    EXPECT_NE(screen.find("old.txt  (in the Trash already: deleted for good)\r\n"), std::string::npos) << screen;
}

TEST_F(TerminalTest, WhereEverythingIsProtectedNothingIsAsked)
{
    REQUIRE_OWN_HOME();
    m_folder.makeFolder("home/Documents");

    const ProgramResult result = TerminalProgram(program({"remove", "home/Documents"})).finish();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.out.find("[y/N]"), std::string::npos) << result.out;
}

TEST_F(TerminalTest, TheQuestionHoldsNoControlCharactersOfNames)
{
    m_folder.writeText("evil\x1b[2Jname", "x");
    TerminalProgram terminal(program({"remove", "evil\x1b[2Jname"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.type("n\n");
    const std::string screen = terminal.finish().out;

    EXPECT_EQ(screen.find("\x1b[2J"), std::string::npos);
    EXPECT_NE(screen.find("evil␛[2Jname"), std::string::npos) << screen;
}

TEST_F(TerminalTest, TheQuestionLeavesStandardOutputToTheDocument)
{
    m_folder.writeText("old.txt", "x");
    TerminalProgram terminal(withOutputInFile({"remove", "--json", "old.txt"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.type("y\n");

    EXPECT_EQ(terminal.finish().exitStatus, 0);
    EXPECT_EQ(outputFile()["removed"].size(), 1u);
}

TEST_F(TerminalTest, TheQuestionFindsTheTerminalWhereErrorsGoElsewhere)
{
    m_folder.writeText("old.txt", "x");
    TerminalProgram terminal(
        program({"remove", "old.txt"}).through({"/bin/sh", "-c", "exec \"$0\" \"$@\" > out 2> errors"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.type("y\n");

    EXPECT_EQ(terminal.finish().exitStatus, 0);
    EXPECT_FALSE(m_folder.has("old.txt"));
}

TEST_F(TerminalTest, CtrlCAtTheQuestionRemovesNothing)
{
    m_folder.writeText("kept.txt", "x");
    TerminalProgram terminal(program({"remove", "kept.txt"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    terminal.type("\x03");

    EXPECT_EQ(terminal.finish().signal, SIGINT);
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(TerminalTest, AnItemThatVanishesDuringTheQuestionIsAFailure)
{
    m_folder.writeText("first.txt", "x");
    m_folder.writeText("second.txt", "x");
    TerminalProgram terminal(program({"remove", "first.txt", "second.txt"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    std::filesystem::remove(m_folder / "first.txt");
    terminal.type("y\n");
    const ProgramResult result = terminal.finish();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_NE(result.out.find("corvane-cli: first.txt: No such file or directory"), std::string::npos) << result.out;
    EXPECT_FALSE(m_folder.has("second.txt"));
}

TEST_F(TerminalTest, AFolderInThePlaceOfTheFileThatWasShownStays)
{
    m_folder.writeText("notes", "x");
    TerminalProgram terminal(program({"remove", "notes"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    std::filesystem::remove(m_folder / "notes");
    m_folder.writeText("notes/kept.txt", "x");
    terminal.type("y\n");
    const ProgramResult result = terminal.finish();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_NE(result.out.find("corvane-cli: notes: it has changed since you selected it"), std::string::npos)
        << result.out;
    EXPECT_TRUE(m_folder.has("notes/kept.txt"));
}

TEST_F(TerminalTest, AFolderThatBecomesALinkDuringTheQuestionIsNotFollowed)
{
    m_folder.writeText("target/kept.txt", "x");
    m_folder.writeText("folder/old.txt", "x");
    TerminalProgram terminal(program({"remove", "--permanently", "folder"}));

    ASSERT_TRUE(terminal.waitFor("[y/N] "));
    std::filesystem::remove_all(m_folder / "folder");
    m_folder.link("folder", m_folder / "target");
    terminal.type("y\n");
    const ProgramResult result = terminal.finish();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_NE(result.out.find("corvane-cli: folder: it has changed since you selected it"), std::string::npos)
        << result.out;
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "folder"));
    EXPECT_TRUE(m_folder.has("target/kept.txt"));
}

} // namespace

} // namespace corvane
