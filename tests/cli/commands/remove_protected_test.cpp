#include <string>

#include <pwd.h>

#include "cli/commands/remove_fixture.h"

namespace corvane {
namespace {

using nlohmann::json;

TEST_F(RemoveCommandTest, AProtectedPlaceStaysAndIsNamed)
{
    REQUIRE_OWN_HOME();
    m_folder.writeText("home/Documents/letter.txt", "x");

    const ProgramResult result = run({"remove", "--yes", "--json", "home/Documents"});

    EXPECT_EQ(parsed(result, 1),
              (json{{"message", "Nothing was removed · 1 couldn't be removed (Documents: protected location)"},
                    {"removed", json::array()},
                    {"failures", json::array({"Documents: protected location"})},
                    {"failedItems", json::array({{{"path", m_folder / "home/Documents"},
                                                  {"line", "Documents: protected location"}}})}}));
    EXPECT_EQ(result.errors, "corvane-cli: Documents: protected location\n");
    EXPECT_TRUE(m_folder.has("home/Documents/letter.txt"));
}

TEST_F(RemoveCommandTest, AProtectedFolderDoesNotStandForAnItemInsideIt)
{
    REQUIRE_OWN_HOME();
    m_folder.writeText("home/Documents/letter.txt", "x");

    const json removal = document({"remove", "--yes", "home/Documents", "home/Documents/letter.txt"}, 1);

    EXPECT_EQ(removal["removed"][0]["path"], m_folder / "home/Documents/letter.txt");
    EXPECT_TRUE(m_folder.has("home/Documents"));
    EXPECT_FALSE(m_folder.has("home/Documents/letter.txt"));
}

TEST_F(RemoveCommandTest, AProtectedPlaceBehindALinkStays)
{
    REQUIRE_OWN_HOME();
    m_folder.writeText("home/.ssh/id", "x");
    m_folder.link("keys", m_folder / "home/.ssh");

    const ProgramResult result = run({"remove", "--yes", "--permanently", "keys/id"});

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_TRUE(m_folder.has("home/.ssh/id"));
}

TEST_F(RemoveCommandTest, TheHomeFolderIsRefusedHoweverItIsWritten)
{
    REQUIRE_OWN_HOME();
    m_folder.makeFolder("home/sub");
    m_folder.link("way", m_folder / "home/sub");

    for (const char *const argument : {"home", "home/", "home/.", "home/sub/..", "way/.."}) {
        EXPECT_EQ(run({"remove", "--yes", "--permanently", argument}).exitStatus, 1) << argument;
        EXPECT_TRUE(m_folder.has("home/sub")) << argument;
    }
}

TEST_F(RemoveCommandTest, AHomeThatIsNoAbsolutePathIsRefusedByWhatNeedsIt)
{
    m_folder.writeText("kept.txt", "x");
    for (const char *const home : {"", "home", "./home"}) {
        for (const std::vector<std::string> &command : {std::vector<std::string>{"remove", "--yes", "kept.txt"},
                                                        {"protected", "kept.txt"},
                                                        {"scan"},
                                                        {"cleanup"},
                                                        {"apps"},
                                                        {"breakdown"}}) {
            const ProgramResult result = program(command).with("HOME", home).run();
            expectRefused(result);
            EXPECT_TRUE(result.errors.starts_with("corvane-cli: HOME is ")) << result.errors;
        }
        EXPECT_EQ(program({"--version"}).with("HOME", home).run().exitStatus, 0);
        EXPECT_EQ(program({"scan", m_folder / "data"}).with("HOME", home).run().exitStatus, 0);
    }
    EXPECT_TRUE(m_folder.has("kept.txt"));
}

TEST_F(RemoveCommandTest, ARelativeDataFolderIsIgnored)
{
    m_folder.writeText("old.txt", "x");

    EXPECT_EQ(program({"remove", "--yes", "old.txt"}).with("XDG_DATA_HOME", "data").run().exitStatus, 0);

    EXPECT_FALSE(m_folder.has("old.txt"));
    EXPECT_TRUE(m_folder.has("home/.local/share/Trash/files/old.txt"));
    EXPECT_TRUE(trashIsEmpty()) << "the folder of that name in the current one is no Trash";
}

TEST_F(RemoveCommandTest, AHomeIsWhatItReallyIs)
{
    m_folder.writeText("real/me/.ssh/id", "x");
    m_folder.makeFolder("real/me/sub");
    m_folder.link("way", m_folder / "real/me/sub");

    // Lexically, this path is the folder that contains the link.
    const ProgramResult result = program({"remove", "--yes", "--permanently", m_folder / "real/me/.ssh/id"})
                                     .with("HOME", m_folder / "way/..")
                                     .run();

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_TRUE(m_folder.has("real/me/.ssh/id"));
}

TEST_F(RemoveCommandTest, TheAccountsHomeIsProtectedWhateverHomeSays)
{
    const passwd *const account = getpwuid(geteuid());
    ASSERT_NE(account, nullptr);
    const std::string home = account->pw_dir;
    const json verdicts = document({"protected", home, home + "/Documents", home + "/.ssh/id"});
    for (const json &verdict : verdicts)
        EXPECT_EQ(verdict["protected"], true) << verdict;
}

} // namespace
} // namespace corvane
