#include "apps/linux_apps.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apps/linux_apps_fixture.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using test::entryText;
using testing::ElementsAre;
using testing::IsEmpty;

class LinuxAppsTest : public test::LinuxAppsFixture {};

TEST_F(LinuxAppsTest, EveryKindOfApplicationHasItsPicture)
{
    const std::string theme = "/usr/share/icons/hicolor/64x64/apps/";
    addPackage("chart", "chart", entryText("Sea Chart", "chart", "Icon=sea-chart\n"));
    fake.files.addText(theme + "sea-chart.png", "x", 0);
    addFlatpak("org.port.Pilot", "Pilot");
    setText("/var/lib/flatpak/exports/share/applications/org.port.Pilot.desktop",
            entryText("Pilot", "x", "Icon=org.port.Pilot\n"));
    fake.files.addText("/var/lib/flatpak/exports/share/icons/hicolor/scalable/apps/org.port.Pilot.svg", "x", 0);
    addSnap("pad", "Pad");
    fake.files.addText("/snap/pad/current/meta/gui/icon.png", "x", 0);
    addItem("Kite.AppImage", 1'000);
    fake.files.addText(at(".local/share/applications/kite.desktop"),
                       entryText("Kite", at("Kite.AppImage"), "Icon=kite\n"), 0);
    fake.files.addText(at(".local/share/icons/hicolor/256x256/apps/kite.png"), "x", 0);
    EXPECT_EQ(app("Sea Chart").icon, theme + "sea-chart.png");
    EXPECT_EQ(app("Pilot").icon, "/var/lib/flatpak/exports/share/icons/hicolor/scalable/apps/org.port.Pilot.svg");
    EXPECT_EQ(app("Pad").icon, "/snap/pad/current/meta/gui/icon.png");
    EXPECT_EQ(app("Kite").icon, at(".local/share/icons/hicolor/256x256/apps/kite.png"));
}

class UnplainNameTest : public LinuxAppsTest, public testing::WithParamInterface<std::string> {};

TEST_P(UnplainNameTest, MakesNoCommandForATerminal)
{
    addPackage(GetParam(), "chart", entryText("Sea Chart", "chart"));
    addFlatpak("org.sea." + GetParam(), "Flat");
    addSnap(GetParam(), "Snapped");
    EXPECT_THAT(names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Names, UnplainNameTest,
                         testing::Values("chart;rm", "$(chart)", "chart chart", "`x`", "a'b", "a&b", "a|b", "a>b",
                                         "chart; rm -rf ~", "chart\"x", "chart\\x", "chart\tx", "chart\rx",
                                         "chart\x1b[2K", "chart\u202etrahc", "chart\u200f", "chart\u00a0x", "chart*",
                                         "~chart", "!chart", "chart#x", "{chart,x}"));

TEST_F(LinuxAppsTest, ANameThatIsAnOptionMakesNoCommand)
{
    addPackage("-chart", "chart", entryText("Sea Chart", "chart"));
    addSnap("-chart", "Snapped");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(LinuxAppsTest, TheApplicationItselfIsNotOffered)
{
    addFlatpak("app.corvane.Corvane", "Corvane");
    addPackage("corvane", "app.corvane.Corvane", entryText("Corvane", "corvane"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(LinuxAppsTest, TheLargestStandsFirst)
{
    addPackage("chart", "chart", entryText("Small", "chart"));
    addSnap("port", "Large");
    EXPECT_THAT(names(), ElementsAre("Large", "Small"));
}

TEST_F(LinuxAppsTest, InvalidDatabasesDoNotCrash)
{
    std::mt19937 random(11);
    for (int round = 0; round < 60; ++round) {
        std::string text;
        for (int i = 0; i < 400; ++i)
            text += static_cast<char>(random() % 5 == 0 ? '\n' : random() % 256);
        setText("/var/lib/dpkg/status", "Package: x\nStatus: a installed\nInstalled-Size: 99999999999999999\n" + text);
        setText("/var/lib/dpkg/info/x.list", "/usr/share/applications/../../../etc/x.desktop\n" + text);
        setText("/var/lib/pacman/local/x/files", "usr/share/applications/x.desktop\n" + text);
        setText("/var/lib/pacman/local/x/desc", "%NAME%\n" + text);
        setText("/usr/share/applications/x.desktop", entryText("X", text), 0);
        setText("/snap/x/current/meta/snap.yaml", "version:" + text);
        setText("/var/lib/snapd/snaps/x_1.snap", "", 1);
        setText("/var/lib/snapd/desktop/applications/x_x.desktop", entryText("S", text));
        for (const InstalledApp &each : load().apps)
            EXPECT_GE(each.appSize, 0);
    }
}

TEST_F(LinuxAppsTest, OfAHundredThousandDesktopFilesTheFirstTenThousandAreRead)
{
    addItem("Kite.AppImage", 1'000);
    const std::string folder = at(".local/share/applications/");
    fake.files.addText(folder + "a.desktop", entryText("Kite", at("Kite.AppImage")), 0);
    for (int i = 0; i < 100'000; ++i)
        fake.files.addText(folder + "n" + std::to_string(i) + ".desktop", "x", 0);
    EXPECT_THAT(names(), ElementsAre("Kite"));
    EXPECT_EQ(fake.log->linesStartingWith("readFile " + folder).size(), 10'000u);
}

TEST_F(LinuxAppsTest, OnceStoppedNothingMoreIsMeasured)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    fake.files.addText("/var/lib/dpkg/status", status);
    const StopFlag stop = true;
    EXPECT_THAT(AppInventory::load(fake.host(), locations, now, stop).apps, IsEmpty());
}

/// The environment of a user with this home folder and default settings, while this object lives.
class EnvironmentOf {
public:
    explicit EnvironmentOf(const std::string &home)
    {
        set("HOME", home.c_str());
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"})
            set(name, nullptr);
    }
    ~EnvironmentOf()
    {
        for (const auto &[name, value] : m_before)
            value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
    }
    EnvironmentOf(const EnvironmentOf &) = delete;
    EnvironmentOf &operator=(const EnvironmentOf &) = delete;

private:
    void set(const char *name, const char *value)
    {
        const char *const before = std::getenv(name);
        m_before.emplace_back(name, before != nullptr ? std::optional<std::string>(before) : std::nullopt);
        value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
    }

    std::vector<std::pair<const char *, std::optional<std::string>>> m_before;
};

TEST(LinuxAppsOnDiskTest, PipesAndLoopsAndThousandsOfEntriesAreSurvived)
{
    const TemporaryFolder folder;
    const std::string applications = "home/.local/share/applications/";
    folder.writeFile("home/apps/Chart.AppImage", 10'000);
    folder.writeText(applications + "chart.desktop", entryText("On Disk Chart", folder / "home/apps/Chart.AppImage"));
    ASSERT_EQ(::mkfifo((folder / (applications + "pipe.desktop")).c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop.desktop", (folder / (applications + "loop.desktop")).c_str()), 0);
    ASSERT_EQ(::symlink("/dev/zero", (folder / (applications + "zero.desktop")).c_str()), 0);
    for (int i = 0; i < 3'000; ++i)
        folder.writeText(applications + "n" + std::to_string(i) + ".desktop", "x");

    const EnvironmentOf environment(folder / "home");
    const ProtectedLocations locations(folder / "home", ProtectedPlaces{});
    const AppInventory::Result result = loadLinuxApps(systemHost(), locations, Time{});
    const auto found = std::ranges::find(result.apps, "On Disk Chart", &InstalledApp::name);
    ASSERT_NE(found, result.apps.end());
    EXPECT_EQ(found->appSize, folder.allocated("home/apps/Chart.AppImage"));
    EXPECT_EQ(found->launcher, folder / (applications + "chart.desktop"));
}

} // namespace
} // namespace corvane
