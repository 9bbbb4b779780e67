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
    /// This system's user cache folder, relative to the temporary folder.
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

TEST_F(CleanupCommandTest, JsonBeginsWithAllEighteenLargestFirst)
{
    REQUIRE_OWN_HOME();
    const std::string page = cacheFolder() + "/browser/page";
    m_folder.writeFile(page, 500'000);
    m_folder.writeFile("home/Downloads/film.mov", 2'000'000);
    m_folder.writeFile("home/Downloads/small", 5'000);

    json items = document({"cleanup"});

    ASSERT_GE(items.size(), 18u);
    items.erase(items.begin() + 18, items.end());
    EXPECT_EQ(items[0]["id"], "downloads");
    EXPECT_EQ(
        items[0]["entries"],
        (json{{{"path", m_folder / "home/Downloads/film.mov"}, {"size", m_folder.allocated("home/Downloads/film.mov")}},
              {{"path", m_folder / "home/Downloads/small"}, {"size", m_folder.allocated("home/Downloads/small")}}}));
    EXPECT_EQ(items[1]["id"], "caches");
    EXPECT_EQ(items[1]["total"], m_folder.allocated(page));
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
    m_folder.writeFile("home/.cache/browser/page", 500'000);
    m_folder.writeFile("data/Trash/files/film.mov", 400'000);
    m_folder.writeFile("home/Android/Sdk/system-images/android-34/system.img", 300'000);
    m_folder.writeFile("data/pnpm/store/v3/blob", 200'000);
    m_folder.writeFile("home/.local/share/docker/overlay2/layer", 100'000);
    m_folder.writeFile("home/incoming/paper.pdf", 50'000);
    m_folder.writeText("home/.config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/incoming\"\n");

    const json items = document({"cleanup"});

    const std::vector<std::pair<std::string, std::string>> expected{
        {"caches", "home/.cache/browser"},
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
    EXPECT_EQ(item(document({"cleanup"}), "caches")["entries"][0]["path"], m_folder / "home/.cache/browser");
}

TEST_F(CleanupCommandTest, OnALinuxSystemItsOwnRowsFollow)
{
    m_folder.writeFile("home/.cache/pip/wheel", 500'000);
    m_folder.writeFile("fast/registry/crate", 600'000);
    m_folder.writeFile("home/.var/app/org.x/cache/page", 400'000);
    m_folder.writeFile("home/.cache/browser/page", 300'000);

    const json items = parsed(program({"cleanup", "--json"}).with("CARGO_HOME", m_folder / "fast").run());

    EXPECT_EQ(items[0]["id"], "caches");
    EXPECT_EQ(items[0]["entries"].size(), 1u);
    EXPECT_EQ(items[18]["id"], "cargo");
    EXPECT_EQ(items[18]["path"], m_folder / "fast/registry");
    EXPECT_EQ(items[19]["id"], "pip");
    EXPECT_EQ(items[20]["id"], "flatpakcaches");
    EXPECT_EQ(items[20]["entries"][0]["path"], m_folder / "home/.var/app/org.x/cache");
    EXPECT_EQ(items[20]["relativePath"], ".var/app/*/cache");
}

TEST_F(CleanupCommandTest, NoVariableMakesTheUsersFoldersACache)
{
    m_folder.writeFile("home/Documents/thesis", 500'000);
    m_folder.writeFile("home/.ssh/id", 5'000);
    m_folder.link("elsewhere", m_folder / "home/Documents");
    for (const std::string folder : {"/", "/etc", "home", "home/Documents", "home/.ssh", "elsewhere"}) {
        const std::string path = folder.starts_with('/') ? folder : m_folder / folder;
        Program run = program({"cleanup", "--json"});
        for (const char *variable : {"YARN_CACHE_FOLDER", "PIP_CACHE_DIR", "UV_CACHE_DIR", "GOCACHE", "GOMODCACHE",
                                     "CCACHE_DIR", "SCCACHE_DIR", "CONDA_PKGS_DIRS", "HF_HOME", "HF_HUB_CACHE",
                                     "OLLAMA_MODELS", "npm_config_store_dir", "ANDROID_AVD_HOME", "XDG_CACHE_HOME"})
            run.with(variable, path);
        for (const json &one : parsed(run.run()))
            EXPECT_EQ(one["entries"], json::array()) << one["id"] << " in " << path;
    }
}

TEST_F(CleanupCommandTest, OnALinuxSystemTheTableFoldsWhatDoesNotExist)
{
    m_folder.writeFile("home/.cache/browser/page", 300'000);
    m_folder.writeFile("home/.var/app/org.x/cache/page", 400'000);
    const std::string out = run({"cleanup"}).out;
    EXPECT_NE(out.find("1 item in ~/.cache\n"), std::string::npos) << out;
    EXPECT_NE(out.find("1 item in ~/.var/app\n"), std::string::npos) << out;
    EXPECT_NE(out.find(" more places hold nothing\n"), std::string::npos) << out;
    for (const char *word : {"Xcode", "Simulator", "iPhone", "Finder"})
        EXPECT_EQ(out.find(word), std::string::npos) << word;
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
