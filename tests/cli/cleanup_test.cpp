#include <filesystem>
#include <set>
#include <string>

#include "cli/cli_test.h"
#include "platform/system_kind.h"

namespace corvane {

namespace {

using nlohmann::json;

class CleanupCommandTest : public CliTest {
protected:
    /// Where this system keeps a user's caches, beneath the temporary folder.
    static std::string cacheFolder()
    {
        return std::filesystem::exists(macSystemFile) ? "home/Library/Caches" : "home/.cache";
    }

    static json item(const json &items, const std::string &id)
    {
        for (const json &one : items) {
            if (one["id"] == id)
                return one;
        }
        ADD_FAILURE() << id;
        return nullptr;
    }
};

TEST_F(CleanupCommandTest, JsonHasAllEighteenLargestFirst)
{
    REQUIRE_OWN_HOME();
    const std::string wheel = cacheFolder() + "/pip/wheel";
    m_folder.writeFile(wheel, 500'000);
    m_folder.writeFile("home/Downloads/film.mov", 2'000'000);
    m_folder.writeFile("home/Downloads/small", 5'000);

    const json items = document({"cleanup"});

    ASSERT_EQ(items.size(), 18u);
    EXPECT_EQ(items[0]["id"], "downloads");
    EXPECT_EQ(
        items[0]["entries"],
        (json{{{"path", m_folder / "home/Downloads/film.mov"}, {"size", m_folder.allocated("home/Downloads/film.mov")}},
              {{"path", m_folder / "home/Downloads/small"}, {"size", m_folder.allocated("home/Downloads/small")}}}));
    EXPECT_EQ(items[1]["id"], "caches");
    EXPECT_EQ(items[1]["total"], m_folder.allocated(wheel));
    EXPECT_EQ(items[1]["path"], m_folder / cacheFolder());
    EXPECT_EQ(items[2]["total"], 0);
    std::set<std::string> ids;
    for (const json &one : items) {
        ids.insert(one["id"]);
        EXPECT_EQ(one["accessible"], true);
        EXPECT_EQ(one.size(), 10u);
    }
    EXPECT_EQ(ids.size(), 18u);
}

TEST_F(CleanupCommandTest, AFolderThatCannotBeListedIsMarkedAndNoFailure)
{
    REQUIRE_OWN_HOME();
    m_folder.makeUnreadable("home/Library/Logs");
    openToOrdinaryUser();

    const ProgramResult result = program({"cleanup", "--json"}).asOrdinaryUser().run();

    const json items = parsed(result);
    EXPECT_EQ(item(items, "logs")["accessible"], false);
    EXPECT_EQ(item(items, "logs")["entries"], json::array());
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(program({"cleanup"}).asOrdinaryUser().run().out.find("cannot be read"), std::string::npos);
}

#ifdef __linux__
TEST_F(CleanupCommandTest, OnALinuxSystemItsOwnPlacesAreMeasuredWhateverTheHomeHolds)
{
    m_folder.writeFile("home/.cache/pip/wheel", 500'000);
    m_folder.writeFile("data/Trash/files/film.mov", 400'000);
    m_folder.writeFile("home/Android/Sdk/system-images/android-34/system.img", 300'000);
    m_folder.writeFile("data/pnpm/store/v3/blob", 200'000);
    m_folder.writeFile("home/.local/share/docker/overlay2/layer", 100'000);
    m_folder.writeFile("home/incoming/paper.pdf", 50'000);
    m_folder.writeText("home/.config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/incoming\"\n");

    const json items = document({"cleanup"});

    const std::vector<std::pair<std::string, std::string>> expected{
        {"caches", "home/.cache/pip"},
        {"trash", "data/Trash/files/film.mov"},
        {"androidimages", "home/Android/Sdk/system-images/android-34"},
        {"pnpm", "data/pnpm/store/v3"},
        {"docker", "home/.local/share/docker/overlay2"},
        {"downloads", "home/incoming/paper.pdf"}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(items[i]["id"], expected[i].first);
        ASSERT_EQ(items[i]["entries"].size(), 1u) << expected[i].first;
        EXPECT_EQ(items[i]["entries"][0]["path"], m_folder / expected[i].second);
    }
    EXPECT_EQ(items[0]["relativePath"], "Library/Caches");
    EXPECT_EQ(items[0]["path"], m_folder / "home/.cache");

    m_folder.makeFolder("home/Library/Caches");
    EXPECT_EQ(item(document({"cleanup"}), "caches")["entries"][0]["path"], m_folder / "home/.cache/pip");
}

TEST_F(CleanupCommandTest, AVariableOrALinkDoesNotMakeTheUsersFoldersACache)
{
    m_folder.writeFile("home/Documents/thesis", 500'000);
    for (const std::string folder : {"home", "home/Documents"}) {
        const json items = parsed(program({"cleanup", "--json"}).with("XDG_CACHE_HOME", m_folder / folder).run());
        EXPECT_EQ(item(items, "caches")["entries"], json::array());
        EXPECT_EQ(item(items, "caches")["path"], nullptr);
    }
    m_folder.link("home/.cache", "Documents");
    EXPECT_EQ(item(document({"cleanup"}), "caches")["path"], nullptr);
}
#endif

TEST_F(CleanupCommandTest, TheTableNamesWhatHoldsSomething)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile("home/.npm/_cacache/blob", 300'000);

    const ProgramResult result = run({"cleanup"});

    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_NE(result.out.find("npm Cache"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("1 item in ~/.npm/_cacache\n"), std::string::npos);
    EXPECT_EQ(result.out.find("Downloads"), std::string::npos);
}

TEST_F(CleanupCommandTest, NothingIsTouched)
{
    REQUIRE_OWN_HOME();
    m_folder.writeFile(cacheFolder() + "/pip/wheel", 1'000);
    EXPECT_EQ(run({"cleanup"}).exitStatus, 0);
    EXPECT_TRUE(m_folder.has(cacheFolder() + "/pip/wheel"));
}

} // namespace

} // namespace corvane
