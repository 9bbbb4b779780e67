#include <string>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

class ProtectedCommandTest : public CliTest {};

TEST_F(ProtectedCommandTest, JsonAnswersEachPathInOrder)
{
    m_folder.makeFolder("tree");

    EXPECT_EQ(document({"protected", "/usr/lib", m_folder / "tree", "/"}),
              (json{{{"path", "/usr/lib"}, {"protected", true}},
                    {{"path", m_folder / "tree"}, {"protected", false}},
                    {{"path", "/"}, {"protected", true}}}));
}

TEST_F(ProtectedCommandTest, LinesStartWithTheVerdict)
{
    const ProgramResult result = run({"protected", "/usr", "tree"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.out, "protected  /usr\nremovable  " + m_folder / "tree" + "\n");
}

TEST_F(ProtectedCommandTest, PathsNeedNotExist)
{
    REQUIRE_OWN_HOME();
    EXPECT_EQ(document({"protected", m_folder / "home/Library/Keychains/x"})[0]["protected"], true);
    EXPECT_EQ(document({"protected", m_folder / "home/nothing/here"})[0]["protected"], false);
}

TEST_F(ProtectedCommandTest, ASecondPathThroughAMountIsProtectedAsWell)
{
    REQUIRE_OWN_HOME();
    m_folder.makeFolder("home/.ssh");
    m_folder.makeFolder("second");
    m_folder.makeFolder("tree");
    const std::vector<std::string> launcher{
        "bwrap", "--dev-bind", "/", "/", "--bind", m_folder / "home/.ssh", m_folder / "second", "--"};
    if (Program({"--version"}).through(launcher).run().exitStatus != 0)
        GTEST_SKIP() << "bubblewrap cannot run here";

    const nlohmann::json verdicts =
        parsed(program({"protected", "--json", m_folder / "second", m_folder / "second/key", m_folder / "tree"})
                   .through(launcher)
                   .run());
    EXPECT_EQ(verdicts[0]["protected"], true);
    EXPECT_EQ(verdicts[1]["protected"], true);
    EXPECT_EQ(verdicts[2]["protected"], false);
}

TEST_F(ProtectedCommandTest, ATildeIsTheHomeFolder)
{
    REQUIRE_OWN_HOME();
    EXPECT_EQ(document({"protected", "~", "~/Library/x/y", "~/.ssh"}),
              (json{{{"path", m_folder / "home"}, {"protected", true}},
                    {{"path", m_folder / "home/Library/x/y"}, {"protected", false}},
                    {{"path", m_folder / "home/.ssh"}, {"protected", true}}}));
    EXPECT_EQ(document({"protected", "./~"})[0]["path"], m_folder / "~");
}

TEST_F(ProtectedCommandTest, WhatLiesBehindALinkIsJudgedByWhereItLies)
{
    REQUIRE_OWN_HOME();
    m_folder.link("system", "/usr");
    m_folder.makeFolder("home/.ssh/inner");
    m_folder.link("keys", m_folder / "home/.ssh");

    EXPECT_EQ(document({"protected", "system/lib"})[0]["protected"], true);
    EXPECT_EQ(document({"protected", "keys/inner"})[0]["protected"], true);
    EXPECT_EQ(document({"protected", "keys/inner/../.."})[0]["protected"], true); // the home folder
    // A link is checked as an item of its own.
    EXPECT_EQ(document({"protected", "system", "keys"})[0]["protected"], false);
}

TEST_F(ProtectedCommandTest, APathThatIsNotUtf8CarriesItsBytes)
{
    const json verdict = document({"protected", "/tmp/caf\xE9"})[0];

    EXPECT_EQ(verdict["path"], "/tmp/caf\xEF\xBF\xBD");
    EXPECT_EQ(verdict["pathHex"], "2f746d702f636166e9");
}

TEST_F(ProtectedCommandTest, LinesHoldNoControlCharacters)
{
    EXPECT_EQ(run({"protected", "/tmp/a\x1b[31m\nb"}).out, "removable  /tmp/a␛[31m␊b\n");
}

TEST_F(ProtectedCommandTest, AnEmptyPathIsRefused)
{
    const ProgramResult result = run({"protected", "/usr", ""});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
}

} // namespace

} // namespace corvane
