#include <string>

#include "cli/cli_test.h"

namespace corvane {

namespace {

using nlohmann::json;

/// Larger than the small-file limit of a scan.
std::string contents(char letter)
{
    return std::string(1'100'000, letter);
}

class DuplicatesCommandTest : public CliTest {
protected:
    void writeTwoGroups() const
    {
        m_folder.writeText("set/a/film.mov", contents('f'));
        m_folder.writeText("set/b/film copy.mov", contents('f'));
        m_folder.writeText("set/c/film copy 2.mov", contents('f'));
        m_folder.setModified("set/a/film.mov", 1'000'000'000);
        m_folder.setModified("set/b/film copy.mov", 1'700'000'000);
        m_folder.setModified("set/c/film copy 2.mov", 1'600'000'000);
        m_folder.writeText("set/song.wav", contents('s'));
        m_folder.hardLink("set/song again.wav", "set/song.wav");
        m_folder.writeText("set/alone.bin", contents('x'));
    }
};

TEST_F(DuplicatesCommandTest, JsonHasTheGroupsTheMostWastefulFirst)
{
    writeTwoGroups();
    const json found = document({"duplicates", "set"});
    const std::int64_t size = m_folder.allocated("set/a/film.mov");

    ASSERT_EQ(found["groups"].size(), 2u);
    const json &films = found["groups"][0];
    EXPECT_EQ(films["size"], size);
    EXPECT_EQ(films["waste"], 2 * size);
    EXPECT_EQ(films["files"], (json{{{"path", m_folder / "set/b/film copy.mov"}, {"modified", 1'700'000'000}},
                                    {{"path", m_folder / "set/c/film copy 2.mov"}, {"modified", 1'600'000'000}},
                                    {{"path", m_folder / "set/a/film.mov"}, {"modified", 1'000'000'000}}}));
    const json &songs = found["groups"][1];
    EXPECT_EQ(songs["waste"], 0);
    EXPECT_FALSE(songs["files"][0].contains("sharesStorageWith"));
    EXPECT_EQ(songs["files"][1]["sharesStorageWith"], songs["files"][0]["path"]);
    EXPECT_EQ(found["waste"], 2 * size);
    EXPECT_EQ(found["cancelled"], false);
}

TEST_F(DuplicatesCommandTest, TheTableNamesEachGroupWithItsFiles)
{
    writeTwoGroups();
    const ProgramResult result = run({"duplicates", "set"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("2 groups · 2.2 MB wasted\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("3 copies × 1.1 MB, 2.2 MB wasted\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  shares its storage with song"), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find("alone.bin"), std::string::npos) << result.out;
    EXPECT_EQ(result.errors, "");
}

TEST_F(DuplicatesCommandTest, TheTableShortensTheHomeFolderAndJsonDoesNot)
{
    REQUIRE_OWN_HOME();
    m_folder.writeText("home/a/song", contents('s'));
    m_folder.hardLink("home/b/song", "home/a/song");
    const std::string table = run({"duplicates", "home"}).out;
    EXPECT_NE(table.find("\n  ~/a/song"), std::string::npos) << table;
    EXPECT_NE(table.find("\n  ~/b/song"), std::string::npos) << table;
    EXPECT_NE(table.find("  shares its storage with ~/"), std::string::npos) << table;
    EXPECT_EQ(table.find(m_folder / "home"), std::string::npos) << table;
    const json listed = document({"duplicates", "home"});
    for (const json &file : listed["groups"][0]["files"])
        EXPECT_TRUE(file["path"].get<std::string>().starts_with(m_folder / "home/")) << file;
}

TEST_F(DuplicatesCommandTest, OneGroupIsOneGroup)
{
    m_folder.writeText("set/a", contents('a'));
    m_folder.writeText("set/b", contents('a'));
    EXPECT_NE(run({"duplicates", "set"}).out.find("1 group · "), std::string::npos);
}

TEST_F(DuplicatesCommandTest, WhereThereAreNoneItSaysSo)
{
    m_folder.writeText("set/a", contents('a'));
    EXPECT_EQ(run({"duplicates", "set"}).out, "No duplicates found. Every file over 1 MB in this folder is unique.\n");
    EXPECT_EQ(document({"duplicates", "set"}), (json{{"groups", json::array()}, {"waste", 0}, {"cancelled", false}}));
}

TEST_F(DuplicatesCommandTest, ANameThatIsNotUtf8HasItsBytes)
{
    m_folder.writeText("set/caf\xe9", contents('a'));
    m_folder.writeText("set/copy", contents('a'));
    const json found = document({"duplicates", "set"});
    for (const json &file : found["groups"][0]["files"])
        EXPECT_EQ(file.contains("pathHex"), file["path"] != m_folder / "set/copy");
}

TEST_F(DuplicatesCommandTest, NeedsAFolder)
{
    EXPECT_EQ(run({"duplicates"}).exitStatus, 2);
    EXPECT_EQ(run({"duplicates", "nowhere"}).exitStatus, 2);
    m_folder.writeText("file", "text");
    EXPECT_EQ(run({"duplicates", "file"}).exitStatus, 2);
}

} // namespace

} // namespace corvane
