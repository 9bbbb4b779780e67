#include "platform/linux/linux_places.h"

#include <cstdlib>
#include <map>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

constexpr std::string_view caches = "Library/Caches";
constexpr std::string_view trash = ".Trash";
constexpr std::string_view androidImages = "Library/Android/sdk/system-images";
constexpr std::string_view pnpmStore = "Library/pnpm/store";
constexpr std::string_view docker = "Library/Containers/com.docker.docker/Data/vms";
constexpr std::string_view downloads = "Downloads";

/// A home folder of its own; the variables that matter are unset, and come back as they were.
class LinuxPlaces : public testing::Test {
protected:
    LinuxPlaces()
    {
        for (const char *const name : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "HOME"}) {
            const char *const value = std::getenv(name);
            m_before[name] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
            ::unsetenv(name);
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

TEST_F(LinuxPlaces, WithoutVariablesTheUsualFoldersOfTheHomeHold)
{
    EXPECT_EQ(place(caches), folder / ".cache");
    EXPECT_EQ(place(trash), folder / ".local/share/Trash/files");
    EXPECT_EQ(place(androidImages), folder / "Android/Sdk/system-images");
    EXPECT_EQ(place(pnpmStore), folder / ".local/share/pnpm/store");
    EXPECT_EQ(place(docker), folder / ".local/share/docker");
    EXPECT_EQ(place(downloads), std::nullopt); // which the user's folders would name
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
        {"XDG_DOWNLOAD_DIR=\"$HOME/\"\n", std::nullopt}, // switched off
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

TEST_F(LinuxPlaces, TheUsualPlaceIsToldBesideTheOneThatIsSet)
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

TEST_F(LinuxPlaces, OfWhatHasNoOtherPlaceNothingIsKnown)
{
    for (const std::string_view other : {"Library/Logs", ".gradle/caches", ".npm/_cacache", "", "Library"})
        EXPECT_EQ(place(other), std::nullopt) << other;
}

TEST_F(LinuxPlaces, TheSystemAnswersForTheUsersHome)
{
    EXPECT_EQ(systemHost().files.ownPlaceFor(caches), (OwnPlace{folder / ".cache", folder / ".cache"}));
    EXPECT_EQ(systemHost().files.ownPlaceFor("Library/Logs"), std::nullopt);
}

} // namespace
} // namespace corvane
