#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include "cli/cli_test.h"
#include "cli/xml_check.h"

namespace corvane {

namespace {

using nlohmann::json;

class MapCommandTest : public CliTest {
protected:
    MapCommandTest()
    {
        m_folder.writeFile("tree/films/first.mov", 4'000'000);
        m_folder.writeFile("tree/films/second.mov", 2'000'000);
        m_folder.writeFile("tree/song.mp3", 1'500'000);
        m_folder.writeFile("tree/note.txt", 800'000);
    }

    [[nodiscard]] std::string textOf(const std::string &relative) const
    {
        std::ifstream file(m_folder / relative, std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }

    [[nodiscard]] static std::size_t countOf(const std::string &text, const std::string &part)
    {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
            ++count;
        return count;
    }
};

TEST_F(MapCommandTest, JsonHasEveryFieldOfATile)
{
    const json map = document({"map", "tree"});

    ASSERT_EQ(map.size(), 3u);
    EXPECT_EQ(map["denied"], 0);
    EXPECT_EQ(map["cancelled"], false);
    const json &tiles = map["tiles"];
    ASSERT_EQ(tiles.size(), 5u);
    const json &films = tiles[0];
    EXPECT_EQ(films["label"], "films");
    EXPECT_EQ(films["path"], m_folder / "tree/films");
    EXPECT_EQ(films["size"], m_folder.allocated("tree/films/first.mov") + m_folder.allocated("tree/films/second.mov"));
    EXPECT_EQ(films["depth"], 0);
    EXPECT_EQ(films["hasNested"], true);
    EXPECT_EQ(films["color"], (json{0.33, 0.43, 1.0}));
    EXPECT_EQ(films["x"], 1.5);
    EXPECT_EQ(films["y"], 1.5);
    EXPECT_GT(films["width"].get<double>(), 500);
    EXPECT_EQ(films["height"], 597);
    EXPECT_EQ(films.size(), 10u);
    EXPECT_EQ(tiles[1]["label"], "first.mov");
    EXPECT_EQ(tiles[1]["depth"], 1);
    EXPECT_EQ(tiles[1]["hasNested"], false);
    EXPECT_EQ(tiles[3]["label"], "song.mp3");
    EXPECT_EQ(tiles[4]["label"], "1 small file");
    EXPECT_TRUE(tiles[4]["path"].is_null());
}

TEST_F(MapCommandTest, TilesFillTheSizeThatIsAskedFor)
{
    for (const char *const argument : {"--size=300x200", "--size"}) {
        std::vector<std::string> arguments{"map", "tree", argument};
        if (arguments.back() == "--size")
            arguments.emplace_back("300x200");
        double right = 0;
        double bottom = 0;
        const json map = document(arguments);
        for (const json &tile : map["tiles"]) {
            right = std::max(right, tile["x"].get<double>() + tile["width"].get<double>());
            bottom = std::max(bottom, tile["y"].get<double>() + tile["height"].get<double>());
        }
        EXPECT_NEAR(right, 298.5, 0.01);
        EXPECT_NEAR(bottom, 198.5, 0.01);
    }
}

TEST_F(MapCommandTest, ASizeThatIsNoneIsRefused)
{
    for (const char *const size : {"900", "900x", "x600", "0x600", "900x-1", "-1", "-1x-1", "900x600x2", "900 x 600",
                                   "1e3x5", "", "200000x5", "99999999999999999999x5", "900X600"}) {
        const ProgramResult result = run({"map", "tree", "--size", size});
        EXPECT_EQ(result.exitStatus, 2) << size;
        EXPECT_EQ(result.errors, "corvane-cli: \"" + std::string(size) +
                                     "\" is not a valid size; use WIDTHxHEIGHT, such as 900x600, each from 1 to "
                                     "100000; see \"corvane-cli map "
                                     "--help\"\n");
    }
}

TEST_F(MapCommandTest, NamesThatAreNotUtf8CarryTheirBytes)
{
    m_folder.writeFile("odd/caf\xE9", 1'200'000);

    const json tile = document({"map", "odd"})["tiles"][0];

    EXPECT_EQ(tile["label"], "caf\xEF\xBF\xBD");
    EXPECT_EQ(tile["nameHex"], "636166e9");
    EXPECT_TRUE(tile["pathHex"].get<std::string>().ends_with("636166e9"));
}

TEST_F(MapCommandTest, TheTableNamesEveryTile)
{
    const ProgramResult result = run({"map", "tree"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("      Size        X        Y    Width   Height  Name\n"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("      6 MB      1.5      1.5 "), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  films/\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("    first.mov\n"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("  1 small file\n"), std::string::npos) << result.out;
}

TEST_F(MapCommandTest, AnEmptyFolderHasNoTiles)
{
    EXPECT_EQ(document({"map", "home"}), (json{{"denied", 0}, {"cancelled", false}, {"tiles", json::array()}}));
    EXPECT_NE(run({"map", "home"}).out.find("Nothing big here\n"), std::string::npos);
}

TEST_F(MapCommandTest, ThePictureHasATileForEach)
{
    const ProgramResult result = run({"map", "tree", "--svg", "map.svg"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.out, "");
    const std::string svg = textOf("map.svg");
    EXPECT_EQ(xmlFault(svg), "") << svg;
    EXPECT_NE(svg.find("width=\"900\" height=\"600\" viewBox=\"0 0 900 600\""), std::string::npos);
    EXPECT_EQ(countOf(svg, "<g>"), 5u);
    EXPECT_NE(svg.find(">first.mov</text>"), std::string::npos) << svg;
    EXPECT_NE(svg.find(">4 MB</text>"), std::string::npos) << svg;
}

TEST_F(MapCommandTest, ThePictureIsWellFormedWhateverTheNames)
{
    m_folder.writeFile("odd/<b>&\"'\x01\x1b[31m\n]]>.mov", 2'000'000);
    m_folder.writeFile("odd/caf\xE9\xFF", 2'000'000);
    m_folder.writeFile("odd/\xEF\xBF\xBE \xEF\xBF\xBF \xED\xA0\x80", 2'000'000);
    m_folder.writeFile("<&>/film.mov", 2'000'000);

    for (const char *const folder : {"odd", "<&>"}) {
        EXPECT_EQ(run({"map", folder, "--svg=map.svg"}).exitStatus, 0);
        EXPECT_EQ(xmlFault(textOf("map.svg")), "") << textOf("map.svg");
    }
    EXPECT_NE(textOf("map.svg").find("&lt;&amp;&gt;"), std::string::npos);
}

TEST_F(MapCommandTest, ThePictureCanGoToStandardOutput)
{
    const ProgramResult result = run({"map", "tree", "--svg", "-"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(xmlFault(result.out), "");
    EXPECT_FALSE(m_folder.has("-"));
}

TEST_F(MapCommandTest, ThePictureAndTheDocumentCannotShareStandardOutput)
{
    const ProgramResult result = run({"map", "tree", "--svg", "-", "--json"});

    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
}

TEST_F(MapCommandTest, ThePictureAndTheDocumentCanBeHadAtOnce)
{
    EXPECT_EQ(document({"map", "tree", "--svg", "map.svg"})["tiles"].size(), 5u);
    EXPECT_EQ(xmlFault(textOf("map.svg")), "");
}

TEST_F(MapCommandTest, AShorterPictureLeavesNothingOfALongerFile)
{
    m_folder.writeText("map.svg", std::string(100'000, 'x'));

    EXPECT_EQ(run({"map", "tree", "--svg", "map.svg"}).exitStatus, 0);

    EXPECT_EQ(xmlFault(textOf("map.svg")), "");
}

TEST_F(MapCommandTest, APictureThatCannotBeWrittenIsRefusedBeforeTheScan)
{
    m_folder.makeFolder("folder");

    const ProgramResult missing = run({"map", "tree", "--svg", "nowhere/map.svg"});
    EXPECT_EQ(missing.exitStatus, 2);
    EXPECT_EQ(missing.errors, "corvane-cli: cannot write nowhere/map.svg: No such file or directory\n");
    EXPECT_EQ(run({"map", "tree", "--svg", "folder"}).exitStatus, 2);
    EXPECT_EQ(run({"map", "tree", "--svg", ""}).exitStatus, 2);
}

TEST_F(MapCommandTest, AFullDiskIsNamed)
{
    if (access("/dev/full", W_OK) != 0)
        GTEST_SKIP() << "there is no /dev/full on this system";

    const ProgramResult result = run({"map", "tree", "--svg", "/dev/full"});

    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, "corvane-cli: cannot write /dev/full: No space left on device\n");
}

TEST_F(MapCommandTest, APathThatCannotBeScannedIsRefusedAndNoPictureMade)
{
    m_folder.link("dangling", "gone");

    for (const char *const path : {"nowhere", "tree/song.mp3", "dangling", ""}) {
        const ProgramResult result = run({"map", path, "--svg", "map.svg"});
        EXPECT_EQ(result.exitStatus, 2) << path;
        EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    }
    EXPECT_FALSE(m_folder.has("map.svg"));
}

TEST_F(MapCommandTest, FoldersInsideThatCannotBeOpenedAreCounted)
{
    m_folder.makeUnreadable("tree/closed");
    openToOrdinaryUser();

    const json map = parsed(program({"map", "tree", "--json"}).asOrdinaryUser().run(), 0);

    EXPECT_EQ(map["denied"], 1);
    EXPECT_EQ(map["tiles"].size(), 5u);
}

TEST_F(MapCommandTest, AnUnreadableFolderHasNoTilesAndIsNamed)
{
    m_folder.makeUnreadable("closed");
    openToOrdinaryUser();

    const ProgramResult result = program({"map", "closed", "--json"}).asOrdinaryUser().run();

    EXPECT_EQ(parsed(result, 1), (json{{"denied", 0}, {"cancelled", false}, {"tiles", json::array()}}));
    EXPECT_EQ(result.errors, "corvane-cli: cannot read " + m_folder / "closed" + ": Permission denied\n");
}

} // namespace

} // namespace corvane
