#include "platform/linux/linux_places.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/host.h"
#include "platform/linux/place_settings.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

constexpr std::string_view caches = "Library/Caches";
constexpr std::string_view trash = ".Trash";
constexpr std::string_view androidImages = "Library/Android/sdk/system-images";
constexpr std::string_view pnpmStore = "Library/pnpm/store";
constexpr std::string_view docker = "Library/Containers/com.docker.docker/Data/vms";
constexpr std::string_view downloads = "Downloads";

/// All variables that move a place.
std::set<std::string> variables()
{
    std::set<std::string> names{"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"};
    for (const PlaceSetting &setting : placeSettings) {
        if (setting.variable != nullptr)
            names.insert(setting.variable);
    }
    return names;
}

/// A temporary home folder; unsets the relevant variables, and restores them.
class LinuxPlaces : public testing::Test {
protected:
    LinuxPlaces()
    {
        for (const std::string &name : variables()) {
            const char *const value = std::getenv(name.c_str());
            m_before[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
            ::unsetenv(name.c_str());
        }
        set("HOME", folder.path());
    }
    ~LinuxPlaces() override
    {
        for (const auto &[name, value] : m_before) {
            if (value)
                set(name, *value);
            else
                ::unsetenv(name.c_str());
        }
    }

    static void set(const std::string &name, const std::string &value) { ::setenv(name.c_str(), value.c_str(), 1); }
    std::optional<std::string> place(std::string_view macPlace) const
    {
        const std::optional<OwnPlace> own = linuxPlaceFor(macPlace, folder.path());
        return own ? std::optional(own->path) : std::nullopt;
    }
    std::vector<std::string> userFolders() const { return linuxUserFolders(folder.path()); }

    TemporaryFolder folder;

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

TEST_F(LinuxPlaces, WithoutVariablesTheDefaultFoldersAreUsed)
{
    EXPECT_EQ(place(caches), folder / ".cache");
    EXPECT_EQ(place(trash), folder / ".local/share/Trash/files");
    EXPECT_EQ(place(androidImages), folder / "Android/Sdk/system-images");
    EXPECT_EQ(place(pnpmStore), folder / ".local/share/pnpm/store");
    EXPECT_EQ(place(docker), folder / ".local/share/docker");
    EXPECT_EQ(place(downloads), std::nullopt); // only the user's folder settings name it
}

TEST_F(LinuxPlaces, VariablesMoveWhatBelongsToThem)
{
    set("XDG_CACHE_HOME", "/fast/cache");
    set("XDG_DATA_HOME", "/big/data/");

    EXPECT_EQ(place(caches), "/fast/cache");
    EXPECT_EQ(place(trash), "/big/data/Trash/files");
    EXPECT_EQ(place(pnpmStore), "/big/data/pnpm/store");
    EXPECT_EQ(place(androidImages), folder / "Android/Sdk/system-images");
    EXPECT_EQ(place(docker), folder / ".local/share/docker");
}

TEST_F(LinuxPlaces, RelativeAndEmptyVariablesAreIgnored)
{
    for (const char *const value : {"", "cache", "./cache", "~/cache"}) {
        set("XDG_CACHE_HOME", value);
        set("XDG_DATA_HOME", value);
        EXPECT_EQ(place(caches), folder / ".cache") << value;
        EXPECT_EQ(place(trash), folder / ".local/share/Trash/files") << value;
        EXPECT_EQ(place(pnpmStore), folder / ".local/share/pnpm/store") << value;
    }
    set("XDG_CONFIG_HOME", "config");
    folder.writeText(".config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/incoming\"\n");
    EXPECT_EQ(place(downloads), folder / "incoming");
}

TEST_F(LinuxPlaces, DownloadsAreWhereTheUsersFoldersSay)
{
    const std::map<std::string, std::optional<std::string>> texts{
        {"XDG_DOWNLOAD_DIR=\"$HOME/incoming\"\n", folder / "incoming"},
        {"XDG_DOWNLOAD_DIR=\"$HOME/a b/c\"", folder / "a b/c"},
        {"# comment\n  XDG_DOWNLOAD_DIR=\"/mnt/downloads/\"\nXDG_MUSIC_DIR=\"$HOME/m\"\n", "/mnt/downloads"},
        {"XDG_DOWNLOAD_DIR=\"/a\"\nXDG_DOWNLOAD_DIR=\"/b\"\n", "/b"},
        {"XDG_DOWNLOAD_DIR=\"$HOME/say \\\"hi\\\"\"\n", folder / "say \"hi\""},
        {"XDG_DOWNLOAD_DIR=\"$HOME/\"\n", std::nullopt}, // disabled
        {"XDG_DOWNLOAD_DIR=\"$HOME\"\n", std::nullopt},
        {"XDG_DOWNLOAD_DIR=\"incoming\"\n", std::nullopt}, // relative
        {"XDG_DOWNLOAD_DIR=\"$HOMES/x\"\n", std::nullopt},
        {"XDG_DOWNLOAD_DIR=/mnt/downloads\n", std::nullopt},
        {"XDG_DOWNLOAD_DIR=", std::nullopt},
        {"#XDG_DOWNLOAD_DIR=\"/a\"\n", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto &[text, expected] : texts) {
        folder.writeText(".config/user-dirs.dirs", text);
        EXPECT_EQ(place(downloads), expected) << text;
    }
}

TEST_F(LinuxPlaces, TheDefaultPlaceIsReportedBesideTheConfiguredOne)
{
    set("XDG_CACHE_HOME", "/fast/cache");
    set("XDG_DATA_HOME", "/big/data");
    folder.writeText(".config/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"/mnt/downloads\"\n");
    const std::string home = folder.path();
    EXPECT_EQ(linuxPlaceFor(caches, home), (OwnPlace{"/fast/cache", folder / ".cache"}));
    EXPECT_EQ(linuxPlaceFor(trash, home), (OwnPlace{"/big/data/Trash/files", folder / ".local/share/Trash/files"}));
    EXPECT_EQ(linuxPlaceFor(downloads, home), (OwnPlace{"/mnt/downloads", folder / "Downloads"}));
    EXPECT_EQ(linuxPlaceFor(docker, home), (OwnPlace{folder / ".local/share/docker", folder / ".local/share/docker"}));
}

TEST_F(LinuxPlaces, TheFoldersThatTheUserHasNamedAreAllKnown)
{
    EXPECT_TRUE(userFolders().empty());
    folder.writeText(".config/user-dirs.dirs", "# comment\n"
                                               "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
                                               "XDG_PUBLICSHARE_DIR=\"$HOME/\"\n"
                                               "XDG_VIDEOS_DIR=\"/data/films\"\n"
                                               "XDG_MUSIC_DIR=\"relative\"\n"
                                               "OTHER_DIR=\"/other\"\n"
                                               "XDG_DOWNLOAD_DIR=\"$HOME/old\"\n"
                                               "XDG_DOWNLOAD_DIR=\"$HOME/Schreibtisch\"\n");
    EXPECT_EQ(userFolders(),
              (std::vector<std::string>{folder / "Schreibtisch", "/data/films", folder / "Schreibtisch"}));
}

TEST_F(LinuxPlaces, TheUsersFoldersAreReadFromTheConfigurationFolder)
{
    folder.writeText("settings/user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"$HOME/incoming\"\n");
    set("XDG_CONFIG_HOME", folder / "settings");
    EXPECT_EQ(place(downloads), folder / "incoming");
}

TEST_F(LinuxPlaces, BlanksAroundTheEqualsSignDoNotMatter)
{
    folder.writeText(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR = \"$HOME/Dokumente\"\n");
    EXPECT_EQ(userFolders(), std::vector<std::string>{folder / "Dokumente"});
}

TEST_F(LinuxPlaces, AListOfFoldersThatIsAPipeIsNotRead)
{
    folder.makeFolder(".config");
    ASSERT_EQ(::mkfifo((folder / ".config/user-dirs.dirs").c_str(), 0600), 0);
    EXPECT_TRUE(userFolders().empty());
}

TEST_F(LinuxPlaces, AnImplausiblyLongListOfFoldersIsNotRead)
{
    const std::string line = "XDG_DOWNLOAD_DIR=\"/a\"\n";
    folder.writeText(".config/user-dirs.dirs", line + std::string(1'000'000 - line.size(), ' '));
    EXPECT_EQ(userFolders(), std::vector<std::string>{"/a"});
    folder.writeText(".config/user-dirs.dirs", line + std::string(1'000'000, ' '));
    EXPECT_TRUE(userFolders().empty());
}

TEST_F(LinuxPlaces, EveryToolFollowsItsOwnVariable)
{
    const struct {
        const char *variable;
        const char *value;
        std::string_view place;
        std::string expected;
    } rows[] = {
        {"GRADLE_USER_HOME", "/fast/gradle", ".gradle/caches", "/fast/gradle/caches"},
        {"GRADLE_USER_HOME", "/fast/gradle", ".gradle/wrapper/dists", "/fast/gradle/wrapper/dists"},
        {"ANDROID_USER_HOME", "/fast/android", ".android/avd", "/fast/android/avd"},
        {"ANDROID_AVD_HOME", "/fast/avd", ".android/avd", "/fast/avd"},
        {"ANDROID_SDK_ROOT", "/sdk1", androidImages, "/sdk1/system-images"},
        {"ANDROID_HOME", "/sdk2", androidImages, "/sdk2/system-images"},
        {"NPM_CONFIG_CACHE", "/fast/NPM", ".npm/_cacache", "/fast/NPM/_cacache"},
        {"npm_config_cache", "/fast/npm/", ".npm/_cacache", "/fast/npm/_cacache"},
        {"PNPM_HOME", "/fast/pnpm", pnpmStore, "/fast/pnpm/store"},
        {"npm_config_store_dir", "/fast/store", pnpmStore, "/fast/store"},
        {"YARN_CACHE_FOLDER", "/fast/yarn", ".cache/yarn", "/fast/yarn"},
        {"YARN_GLOBAL_FOLDER", "/fast/berry", ".yarn/berry/cache", "/fast/berry/cache"},
        {"PIP_CACHE_DIR", "/fast/pip", ".cache/pip", "/fast/pip"},
        {"UV_CACHE_DIR", "/fast/uv", ".cache/uv", "/fast/uv"},
        {"CARGO_HOME", "/fast/cargo", ".cargo/registry", "/fast/cargo/registry"},
        {"GOCACHE", "/fast/gocache", ".cache/go-build", "/fast/gocache"},
        {"GOPATH", "/fast/go:/slow/go", "go/pkg/mod", "/fast/go/pkg/mod"},
        {"GOMODCACHE", "/fast/gomod", "go/pkg/mod", "/fast/gomod"},
        {"CCACHE_DIR", "/fast/ccache", ".cache/ccache", "/fast/ccache"},
        {"SCCACHE_DIR", "/fast/sccache", ".cache/sccache", "/fast/sccache"},
        {"CONDA_PKGS_DIRS", "/fast/pkgs,/slow/pkgs", ".conda/pkgs", "/fast/pkgs"},
        {"HF_HOME", "/fast/hf", ".cache/huggingface", "/fast/hf"},
        {"HF_HOME", "/fast/hf", ".cache/huggingface/hub", "/fast/hf/hub"},
        {"HUGGINGFACE_HUB_CACHE", "/fast/face", ".cache/huggingface/hub", "/fast/face"},
        {"HF_HUB_CACHE", "/fast/hub", ".cache/huggingface/hub", "/fast/hub"},
        {"OLLAMA_MODELS", "/fast/models", ".ollama/models", "/fast/models"},
    };
    for (const PlaceSetting &setting : placeSettings) {
        if (setting.variable == nullptr)
            continue;
        EXPECT_TRUE(std::ranges::any_of(rows,
                                        [&](const auto &row) {
                                            return row.place == setting.place &&
                                                   row.variable == std::string_view(setting.variable);
                                        }))
            << setting.variable << " for " << setting.place;
    }
    for (const auto &row : rows) {
        ::unsetenv(row.variable);
        const std::optional<std::string> before = place(row.place);
        for (const char *const none : {"", "relative", "./relative", "~/relative", "off"}) {
            set(row.variable, none);
            EXPECT_EQ(place(row.place), before) << row.variable << "=" << none;
        }
        set(row.variable, row.value);
        EXPECT_EQ(place(row.place), row.expected) << row.variable;
        EXPECT_TRUE(linuxPlaceFor(row.place, folder.path())->usual.starts_with(folder.path())) << row.variable;
    }
}

TEST_F(LinuxPlaces, CachesOfToolsLieInTheFolderForCaches)
{
    set("XDG_CACHE_HOME", "/fast/cache");
    set("XDG_DATA_HOME", "/big/data");
    for (const std::string name : {"thumbnails", "drkonqi", "abrt", "yarn", "pip", "uv", "go-build", "ccache",
                                   "sccache", "JetBrains", "huggingface", "huggingface/hub", "a-new-tool"})
        EXPECT_EQ(linuxPlaceFor(".cache/" + name, folder.path()),
                  (OwnPlace{"/fast/cache/" + name, folder / ".cache/" + name}));
    for (const std::string name :
         {"Steam/steamapps/shadercache", "containers/storage", "gnome-boxes/images", "libvirt/images"})
        EXPECT_EQ(place(".local/share/" + name), "/big/data/" + name);
}

TEST_F(LinuxPlaces, EveryToolFollowsItsOwnConfiguration)
{
    folder.writeText(".npmrc", "# comment\nregistry=https://x.example/\ncache = ~/npm\nstore-dir=/fast/pnpm\n");
    folder.writeText(".config/pip/pip.conf", "[global]\ncache-dir = /fast/pip\r\n");
    folder.writeText(".config/uv/uv.toml", "cache-dir = \"/fast/uv\"\n");
    folder.writeText(".config/go/env", "GOPATH=/fast/go\nGOCACHE=/fast/gocache\n");
    folder.writeText(".config/ccache/ccache.conf", "max_size = 5G\ncache_dir = $HOME/objects\n");
    folder.writeText(".m2/settings.xml", "<settings><!-- <localRepository>/path/to/local/repo</localRepository> -->\n"
                                         "<localRepository>\n ${user.home}/maven </localRepository></settings>\n");
    EXPECT_EQ(place(".npm/_cacache"), folder / "npm/_cacache");
    EXPECT_EQ(place(pnpmStore), "/fast/pnpm");
    EXPECT_EQ(place(".cache/pip"), "/fast/pip");
    EXPECT_EQ(place(".cache/uv"), "/fast/uv");
    EXPECT_EQ(place(".cache/go-build"), "/fast/gocache");
    EXPECT_EQ(place("go/pkg/mod"), "/fast/go/pkg/mod");
    EXPECT_EQ(place(".cache/ccache"), folder / "objects");
    EXPECT_EQ(place(".m2/repository"), folder / "maven");
    set("PIP_CACHE_DIR", "/variable");
    EXPECT_EQ(place(".cache/pip"), "/variable") << "the variable comes first";
}

TEST_F(LinuxPlaces, ConfigurationThatNamesNoAbsolutePathIsIgnored)
{
    for (const std::string value : {"", "cache", "./cache", "\"\"", "${OTHER}/x", "/a/${OTHER}", "~other/x"}) {
        folder.writeText(".npmrc", "cache=" + value + "\n");
        EXPECT_EQ(place(".npm/_cacache"), std::nullopt) << value;
        folder.writeText(".m2/settings.xml", "<localRepository>" + value + "</localRepository>");
        EXPECT_EQ(place(".m2/repository"), std::nullopt) << value;
    }
    folder.writeText(".m2/settings.xml", "<localRepository>/x");
    EXPECT_EQ(place(".m2/repository"), std::nullopt);
    folder.writeText(".m2/settings.xml", "<!-- <localRepository>/x</localRepository>");
    EXPECT_EQ(place(".m2/repository"), std::nullopt);
}

TEST_F(LinuxPlaces, AConfigurationThatIsAPipeOrTooLongIsNotRead)
{
    ASSERT_EQ(::mkfifo((folder / ".npmrc").c_str(), 0600), 0);
    EXPECT_EQ(place(".npm/_cacache"), std::nullopt);
    folder.writeText(".m2/settings.xml", "<localRepository>/x</localRepository>" + std::string(1'000'000, ' '));
    EXPECT_EQ(place(".m2/repository"), std::nullopt);
}

TEST_F(LinuxPlaces, OtherFoldersHaveNoConfiguredPlace)
{
    for (const std::string_view other : {"Library/Logs", ".gradle/caches", ".npm/_cacache", "", "Library"})
        EXPECT_EQ(place(other), std::nullopt) << other;
}

TEST_F(LinuxPlaces, TheFileSystemUsesTheUsersHome)
{
    EXPECT_EQ(systemHost().files.ownPlaceFor(caches), (OwnPlace{folder / ".cache", folder / ".cache"}));
    EXPECT_EQ(systemHost().files.ownPlaceFor("Library/Logs"), std::nullopt);
}

} // namespace
} // namespace corvane
