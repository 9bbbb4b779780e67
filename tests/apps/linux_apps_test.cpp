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

#include "platform/fake_host.h"
#include "support/temporary_folder.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Match = Leftover::Match;
using Source = InstalledApp::Source;

std::string entryText(const std::string &name, const std::string &exec, const std::string &more = {})
{
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + "\n" + more;
}

/// A Debian desktop in memory with the home folder "/home/u" and a fixed current time.
class LinuxAppsTest : public testing::Test {
protected:
    LinuxAppsTest()
    {
        fake.files.setHome(home);
        fake.files.setSystemKind(SystemKind::linuxSystem);
    }

    void addFlatpak(const std::string &id, const std::string &name, const std::string &exec = "flatpak run x",
                    const std::string &root = "/var/lib/flatpak")
    {
        fake.files.addFile(root + "/app/" + id + "/x86_64/stable/1/files/bin/program", 700'000);
        fake.files.addText(root + "/exports/share/applications/" + id + ".desktop", entryText(name, exec), 0);
    }
    void addSnap(const std::string &name, const std::string &title)
    {
        fake.files.addFile("/var/lib/snapd/snaps/" + name + "_1.snap", 300'000);
        fake.files.addFile("/var/lib/snapd/snaps/" + name + "_2.snap", 400'000);
        fake.files.addText("/var/lib/snapd/desktop/applications/" + name + "_" + name + ".desktop",
                           entryText(title, "env HINT=x /snap/bin/" + name), 0);
    }
    /// Adds a package to Debian's database, with a program of 500 kB and a desktop file.
    void addPackage(const std::string &name, const std::string &entry, const std::string &text,
                    const std::string &listName = {})
    {
        const std::string path = "/usr/share/applications/" + entry + ".desktop";
        fake.files.addText(path, text, 0);
        fake.files.addFile("/usr/bin/" + name, 500'000);
        status += "Package: " + name + "\nStatus: install ok installed\nInstalled-Size: 9\nArchitecture: amd64\n" +
                  "Version: 1:2.5-3\nDescription: x\n y\n\n";
        fake.files.addText("/var/lib/dpkg/info/" + (listName.empty() ? name : listName) + ".list",
                           "/.\n/usr\n/usr/bin\n/usr/bin/" + name + "\n" + path + "\n");
    }
    /// Replaces the item at this path by a file with this text.
    void setText(const std::string &path, std::string text, std::int64_t allocated = 0)
    {
        if (fake.files.has(path))
            fake.files.take(path);
        fake.files.addText(path, std::move(text), allocated);
    }
    void addItem(const std::string &relative, std::int64_t size = 1'000, Time modified = longAgo)
    {
        fake.files.addFile(at(relative), size, modified);
    }
    /// Adds a folder in the home with one file, both last modified at this time.
    void addData(const std::string &relative, std::int64_t size = 1'000, Time modified = longAgo)
    {
        fake.files.addFolder(at(relative), modified);
        addItem(relative + "/data", size, modified);
    }

    AppInventory::Result load()
    {
        if (!status.empty())
            setText("/var/lib/dpkg/status", status);
        return AppInventory::load(fake.host(), locations, now);
    }
    InstalledApp app(const std::string &name)
    {
        const AppInventory::Result result = load();
        const auto found = std::ranges::find(result.apps, name, &InstalledApp::name);
        if (found == result.apps.end()) {
            ADD_FAILURE() << "no application " << name;
            return {};
        }
        return *found;
    }
    std::vector<std::string> names()
    {
        std::vector<std::string> found;
        for (const InstalledApp &each : load().apps)
            found.push_back(each.name);
        return found;
    }
    /// The application's data with this match, relative to the home.
    std::vector<std::string> dataOf(const std::string &name, Match match)
    {
        std::vector<std::string> found;
        for (const Leftover &leftover : app(name).leftovers) {
            if (leftover.match == match)
                found.push_back(leftover.path.substr(home.size() + 1));
        }
        return found;
    }
    std::vector<std::string> orphans()
    {
        std::vector<std::string> found;
        for (const OrphanGroup &group : load().orphanGroups) {
            for (const Leftover &item : group.items) {
                EXPECT_EQ(item.match, Match::orphan);
                found.push_back(item.path.substr(home.size() + 1));
            }
        }
        return found;
    }
    [[nodiscard]] std::string at(const std::string &relative) const { return home + "/" + relative; }

    static constexpr Time now{std::chrono::sys_days{std::chrono::year{2025} / 11 / 19} + std::chrono::hours{12}};
    static constexpr Time longAgo = now - std::chrono::days{400};

    const std::string home = "/home/u";
    std::string status;
    FakeHost fake;
    ProtectedLocations locations{home, ProtectedPlaces{}};
};

// --- What is installed

TEST_F(LinuxAppsTest, AFlatpakIsOneApplicationWithItsVersionAndItsCommand)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    fake.files.addText("/var/lib/flatpak/app/org.sea.Chart/current/active/files/share/metainfo/"
                       "org.sea.Chart.metainfo.xml",
                       "<component><releases><release date=\"2025\" version=\"5.4.1\"/><release version=\"5.3\"/>", 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::flatpak);
    EXPECT_EQ(found.bundleID, "org.sea.Chart");
    EXPECT_EQ(found.version, "5.4.1");
    EXPECT_EQ(found.appSize, 700'000);
    EXPECT_EQ(found.removeCommand, "flatpak uninstall org.sea.Chart");
    EXPECT_EQ(found.path, "/var/lib/flatpak/app/org.sea.Chart");
}

TEST_F(LinuxAppsTest, AFlatpakOfTheUserIsRemovedAsOne)
{
    addFlatpak("org.sea.Chart", "Sea Chart", "x", at(".local/share/flatpak"));
    EXPECT_EQ(app("Sea Chart").removeCommand, "flatpak uninstall --user org.sea.Chart");
}

TEST_F(LinuxAppsTest, AFileOfAFlatpakWithTwoNamesCountsOnce)
{
    const std::string files = "/var/lib/flatpak/app/org.sea.Chart/x86_64/stable/1/files/";
    addFlatpak("org.sea.Chart", "Sea Chart");
    fake.files.addFile(files + "bin/other", 700'000);
    fake.files.identify(files + "bin/other", files + "bin/program");
    EXPECT_EQ(app("Sea Chart").appSize, 700'000);
}

TEST_F(LinuxAppsTest, ASnapHasAllItsRevisions)
{
    addSnap("chart", "Sea Chart");
    fake.files.addText("/snap/chart/current/meta/snap.yaml", "name: chart\nversion: '1.2'\nsummary: x\n", 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::snap);
    EXPECT_EQ(found.bundleID, "chart");
    EXPECT_EQ(found.version, "1.2");
    EXPECT_EQ(found.appSize, 700'000);
    EXPECT_EQ(found.removeCommand, "sudo snap remove chart");
}

TEST_F(LinuxAppsTest, APackageHasWhatItInstalled)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "chart"));
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::package);
    EXPECT_EQ(found.bundleID, "org.sea.Chart");
    EXPECT_EQ(found.version, "2.5");
    EXPECT_EQ(found.appSize, 500'000);
    EXPECT_EQ(found.removeCommand, "sudo apt remove chart");
    EXPECT_EQ(found.path, "/usr/share/applications/org.sea.Chart.desktop");
    EXPECT_FALSE(found.lastUsed);
}

TEST_F(LinuxAppsTest, APackageOfOneArchitectureIsFound)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"), "chart:amd64");
    EXPECT_EQ(app("Sea Chart").removeCommand, "sudo apt remove chart");
}

TEST_F(LinuxAppsTest, TheCommandForAPackageOfAnotherArchitectureNamesIt)
{
    addPackage("dpkg", "dpkg", entryText("Tool", "dpkg"));
    addPackage("pilot", "pilot", entryText("Pilot", "pilot"));
    status.replace(status.rfind("amd64"), 5, "i386");
    addPackage("common", "common", entryText("Common", "common"));
    status.replace(status.rfind("amd64"), 5, "all");
    EXPECT_EQ(app("Tool").removeCommand, "sudo apt remove dpkg");
    EXPECT_EQ(app("Pilot").removeCommand, "sudo apt remove pilot:i386");
    EXPECT_EQ(app("Common").removeCommand, "sudo apt remove common");
    status.replace(status.find("i386"), 4, "x;reboot");
    EXPECT_EQ(app("Pilot").removeCommand, "sudo apt remove pilot");
}

TEST_F(LinuxAppsTest, APackageOfTwoArchitecturesIsOneApplication)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"), "chart:amd64");
    fake.files.addText("/var/lib/dpkg/info/chart:i386.list", "/usr/share/applications/chart.desktop\n");
    status += "Package: chart\nStatus: install ok installed\nArchitecture: i386\n\n";
    EXPECT_THAT(names(), ElementsAre("Sea Chart"));
}

TEST_F(LinuxAppsTest, APackageWhoseFilesCannotBeReadHasTheSizeThatItTells)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    fake.files.failFacts("/usr/bin/chart");
    EXPECT_EQ(app("Sea Chart").appSize, 9 * 1024);
}

TEST_F(LinuxAppsTest, APackageThatIsRemovedButForItsSettingsIsNone)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    status.replace(status.find("install ok installed"), 20, "deinstall ok config-files");
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(LinuxAppsTest, PacmansPackagesAreFound)
{
    fake.files.addText("/usr/share/applications/chart.desktop", entryText("Sea Chart", "chart"), 1'000);
    fake.files.addFile("/usr/bin/chart", 2'000);
    fake.files.addText("/var/lib/pacman/local/sea-chart-1.4-2/desc",
                       "%NAME%\nsea-chart\n\n%VERSION%\n1.4-2\n\n%SIZE%\n77\n");
    fake.files.addText("/var/lib/pacman/local/sea-chart-1.4-2/files",
                       "%FILES%\nusr/\nusr/bin/chart\nusr/share/applications/chart.desktop\n\n%BACKUP%\netc/x\t1\n");
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.removeCommand, "sudo pacman -R sea-chart");
    EXPECT_EQ(found.version, "1.4");
    EXPECT_EQ(found.appSize, 3'000);
}

TEST_F(LinuxAppsTest, WhatTheMenusHideIsLeftOut)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart", "NoDisplay=true\n"));
    addPackage("port", "port", entryText("Port", "port", "Hidden=true\n"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(LinuxAppsTest, APackageOfSeveralEntriesIsOneApplication)
{
    addPackage("office", "office-a", entryText("Office Write", "office"));
    setText("/usr/share/applications/office.desktop", entryText("Office", "office"));
    setText("/var/lib/dpkg/info/office.list", "/usr/share/applications/office-a.desktop\n"
                                              "/usr/share/applications/office.desktop\n/usr/bin/office\n");
    EXPECT_THAT(names(), ElementsAre("Office"));
}

// --- rpm

/// The output of rpm on a system with two applications.
class RpmTest : public LinuxAppsTest {
protected:
    RpmTest()
    {
        fake.files.addFile("/usr/bin/rpm", 1);
        fake.files.addFile("/usr/bin/dnf", 1);
        fake.files.addFolder("/usr/lib/sysimage/rpm");
        fake.files.addText("/usr/share/applications/chart.desktop", entryText("Sea Chart", "chart"), 1'000);
        fake.files.addFile("/usr/bin/chart", 2'000);
    }

    AppInventory::Result loadRpm()
    {
        return loadLinuxApps(fake.host(), locations, now,
                             [this](const std::string &tool, const std::vector<std::string> &arguments) {
                                 EXPECT_EQ(tool, "/usr/bin/rpm");
                                 asked.push_back(arguments);
                                 return arguments.front() == "-qa" ? names : packages;
                             });
    }

    std::optional<std::string> names = "bash\tbash\nbash\tREADME\nsea-chart\tchart.desktop\nsea-chart\tchart\n";
    std::optional<std::string> packages =
        "sea-chart\t1.4\t77\n/usr/bin/chart\n/usr/share/applications/chart.desktop\n/usr/share/doc/chart\n";
    std::vector<std::vector<std::string>> asked;
};

TEST_F(RpmTest, PackagesWithADesktopFileAreFound)
{
    const AppInventory::Result result = loadRpm();
    ASSERT_EQ(result.apps.size(), 1u);
    EXPECT_EQ(result.apps[0].name, "Sea Chart");
    EXPECT_EQ(result.apps[0].version, "1.4");
    EXPECT_EQ(result.apps[0].appSize, 3'000);
    EXPECT_EQ(result.apps[0].removeCommand, "sudo dnf remove sea-chart");
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[1].back(), "sea-chart");
    EXPECT_EQ(asked[1].size(), 4u);
}

TEST_F(RpmTest, TheCommandIsThatOfTheManagerThatIsThere)
{
    fake.files.take("/usr/bin/dnf");
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo rpm -e sea-chart");
    fake.files.addFile("/usr/bin/yum", 1);
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo yum remove sea-chart");
    fake.files.addFile("/usr/bin/zypper", 1);
    EXPECT_EQ(loadRpm().apps[0].removeCommand, "sudo zypper remove sea-chart");
}

TEST_F(RpmTest, WithoutADatabaseNothingIsRun)
{
    fake.files.take("/usr/lib/sysimage/rpm");
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(RpmTest, AFailingToolIsNoPackage)
{
    packages = std::nullopt;
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    names = std::nullopt;
    EXPECT_THAT(loadRpm().apps, IsEmpty());
}

TEST_F(RpmTest, AHostileNameMakesNoCommandAndNoArgument)
{
    names = "--eval=%{lua:x}\tchart.desktop\na;rm\tchart.desktop\nsea-chart\tchart.desktop\n";
    packages = "a;rm -rf ~\t1\t1\n/usr/share/applications/chart.desktop\n\t\t\n/usr/share/applications/chart.desktop\n"
               "/usr/share/applications/../../../etc/x.desktop\n";
    EXPECT_THAT(loadRpm().apps, IsEmpty());
    ASSERT_EQ(asked.size(), 2u);
    EXPECT_EQ(asked[1].size(), 4u);
}

// --- Identifying processes

TEST_F(LinuxAppsTest, APackageRunsItsProgramsAndNoneOfAnother)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/bin/chart"));

    fake.files.take("/usr/bin/chart");
    fake.files.addFile("/usr/lib/chart/chart", 1'000);
    fake.files.addLink("/usr/bin/chart", "/usr/lib/chart/chart");
    setText("/var/lib/dpkg/info/chart.list",
            "/usr/bin/chart\n/usr/lib/chart\n/usr/lib/chart/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/lib/chart", "/usr/lib/chart/chart"));

    fake.files.take("/usr/bin/chart");
    fake.files.addFile("/usr/bin/python3", 1'000);
    fake.files.addLink("/usr/bin/chart", "/usr/bin/python3");
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
}

TEST_F(LinuxAppsTest, AProgramThatTheAdministratorHasChosenIsThePackagesOwn)
{
    addPackage("chart", "chart", entryText("Sea Chart", "map"));
    fake.files.addFile("/usr/bin/map.basic", 1'000);
    fake.files.addLink("/etc/alternatives/map", "/usr/bin/map.basic");
    fake.files.addLink("/usr/bin/map", "/etc/alternatives/map");
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/map.basic\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/bin/map.basic"));
    setText("/var/lib/dpkg/info/chart.list", "/usr/bin/other\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
}

TEST_F(LinuxAppsTest, NoFolderOfEverybodyIsAProgramThatAnEntryStarts)
{
    for (const char *const program : {"", ".", "..", "/", "/usr", "/usr/bin", "../share", "share", "%f"}) {
        SCOPED_TRACE(program);
        setText("/usr/share/applications/chart.desktop", entryText("Sea Chart", program));
        fake.files.addFolder("/usr/share/doc");
        if (!fake.files.has("/usr/share/doc/share"))
            fake.files.addLink("/usr/share/doc/share", "/usr/share");
        setText("/var/lib/dpkg/status", "Package: chart\nStatus: install ok installed\nVersion: 1\n");
        setText("/var/lib/dpkg/info/chart.list", "/.\n/usr\n/usr/bin\n/usr/share\n/usr/share/doc\n"
                                                 "/usr/share/doc/share\n/usr/share/applications/chart.desktop\n");
        fake.files.addFolder("/usr/bin");
        EXPECT_THAT(app("Sea Chart").programs, IsEmpty());
    }
}

TEST_F(LinuxAppsTest, AFolderOfEverybodysIsNoneOfAPackages)
{
    addPackage("chart", "chart", entryText("Sea Chart", "/usr/lib/x86_64-linux-gnu/chart"));
    fake.files.addFile("/usr/lib/x86_64-linux-gnu/chart", 1'000);
    setText("/var/lib/dpkg/info/chart.list",
            "/usr/lib/x86_64-linux-gnu/chart\n/usr/share/applications/chart.desktop\n");
    EXPECT_THAT(app("Sea Chart").programs, ElementsAre("/usr/lib/x86_64-linux-gnu/chart"));
}

TEST_F(LinuxAppsTest, TheMarksAreThoseOfTheSource)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    addSnap("pad", "Pad");
    EXPECT_EQ(marksOf(app("Sea Chart")).flatpak, "org.sea.Chart");
    EXPECT_EQ(marksOf(app("Sea Chart")).snap, "");
    EXPECT_EQ(marksOf(app("Pad")).snap, "pad");
    EXPECT_EQ(marksOf(app("Pad")).flatpak, "");
}

// --- Icons and versions

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

TEST_F(LinuxAppsTest, AFlatpakWithoutADesktopFileIsCalledAsItsDescriptionSays)
{
    fake.files.addFile("/var/lib/flatpak/app/org.sea.Tool/x86_64/stable/1/files/bin/tool", 1'000);
    fake.files.addText("/var/lib/flatpak/app/org.sea.Tool/current/active/files/share/metainfo/"
                       "org.sea.Tool.metainfo.xml",
                       "<component><name>Sea Tool</name></component>", 0);
    EXPECT_THAT(names(), ElementsAre("Sea Tool"));
}

TEST_F(LinuxAppsTest, TheVersionOfAnAppImageIsToldByItsEntryOrItsName)
{
    int number = 0;
    const auto version = [&](const std::string &file, const std::string &more = {}) {
        const std::string name = "Chart " + std::to_string(number++);
        addItem("apps/" + file, 1'000);
        fake.files.addText(at(".local/share/applications/" + name + ".desktop"),
                           entryText(name, "\"" + at("apps/" + file) + "\"", more), 0);
        return app(name).version;
    };
    EXPECT_EQ(version("Chart-1.2.3-x86_64.AppImage"), "1.2.3");
    EXPECT_EQ(version("Chart_v2.0.AppImage"), "2.0");
    EXPECT_EQ(version("Chart-x86_64.AppImage"), "");
    EXPECT_EQ(version("Chart.AppImage"), "");
    EXPECT_EQ(version("Other-1.0.AppImage", "X-AppImage-Version=7.1-rc2\n"), "7.1-rc2");
    EXPECT_EQ(version("More-1.0.AppImage", "X-AppImage-Version=$(x)\n"), "1.0");
}

TEST_F(LinuxAppsTest, AShortcutIntoAnotherProgramIsNoApplication)
{
    addItem("apps/kite/bin/kite", 1'000);
    addItem("apps/kite/lib/part", 1'000);
    fake.files.addText(at(".local/share/applications/a.desktop"),
                       entryText("Kite", at("apps/kite/bin/kite") + " --app-id=abc"), 0);
    fake.files.addText(at(".local/share/applications/b.desktop"), entryText("Game", "steam steam://rungameid/1"), 0);
    fake.files.addText(at(".local/share/applications/c.desktop"), entryText("Vim", "/usr/bin/vim"), 0);
    EXPECT_THAT(names(), IsEmpty());
    fake.files.addText(at(".local/share/applications/d.desktop"), entryText("Kite", at("apps/kite/bin/kite")), 0);
    EXPECT_THAT(names(), ElementsAre("Kite"));
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

TEST_F(LinuxAppsTest, AnAppImageOfTheHomeGoesWithItsDesktopFile)
{
    addItem("Downloads/Chart-1.2.AppImage", 90'000);
    fake.files.addText(at(".local/share/applications/chart.desktop"),
                       entryText("Sea Chart", "\"/home/u/Downloads/Chart-1.2.AppImage\" %U"), 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::appImage);
    EXPECT_EQ(found.path, at("Downloads/Chart-1.2.AppImage"));
    EXPECT_EQ(found.launcher, at(".local/share/applications/chart.desktop"));
    EXPECT_EQ(found.removeCommand, "");
    EXPECT_EQ(found.appSize, 90'000);
}

TEST_F(LinuxAppsTest, AFolderThatWasUnpackedInTheHomeIsAnApplication)
{
    addItem("apps/sea-chart-2.1/bin/sea-chart", 40'000);
    addItem("apps/sea-chart-2.1/lib/part", 50'000);
    fake.files.addText(at(".local/share/applications/x.desktop"),
                       entryText("Sea Chart", "/home/u/apps/sea-chart-2.1/bin/sea-chart"), 0);
    const InstalledApp found = app("Sea Chart");
    EXPECT_EQ(found.source, Source::none);
    EXPECT_EQ(found.path, at("apps/sea-chart-2.1"));
    EXPECT_EQ(found.appSize, 90'000);
}

TEST_F(LinuxAppsTest, AFolderThatMayHoldTheUsersOwnFilesIsNoApplication)
{
    int number = 0;
    const auto start = [&](const std::string &program) {
        addItem(program);
        fake.files.addText(at(".local/share/applications/" + std::to_string(number++) + ".desktop"),
                           entryText("Chart", at(program)), 0);
    };
    start("bin/chart");                // a folder of scripts
    start("chart.sh");                 // the home folder itself
    start("Documents/chart/chart");    // in a documents folder
    start(".local/share/chart/chart"); // in the data folder
    start(".local/bin/chart");         // a folder of user-wide programs
    start("work/chart/chart");         // in a work folder
    fake.files.addFolder(at("work/chart/.git"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(LinuxAppsTest, NoMainFolderAndNoFolderOfManyBecomesAnApplication)
{
    int number = 0;
    const std::string code = "\x7f"
                             "ELF program";
    const auto start = [&](const std::string &program, const std::string &name, const std::string &text) {
        fake.files.addText(at(program), text, 1'000);
        fake.files.addText(at(".local/share/applications/" + std::to_string(number++) + ".desktop"),
                           entryText(name, "\"" + at(program) + "\" %f"), 0);
    };
    start("Documents/documents", "Documents", code);
    start("Pictures/bin/pictures", "Pictures", code);
    start("Games/run", "Games", code);
    start("Games/bin/games", "Games", code);
    start("Chess Club/chess", "Chess", "#!/bin/sh\nedit letters.txt\n"); // a script among the user's documents
    start("Gamesaves/game", "Game", code);
    start("novel/bin/novel", "Novel", "#!/bin/sh\nprint chapters/*\n");
    start("notes/notes", "Notes", code);
    fake.files.addFolder(at("notes/src"));
    fake.files.addText(at(".local/share/applications/x.desktop"), entryText("Root", "/"), 0);
    fake.files.addText(at(".local/share/applications/y.desktop"), entryText("Home", home), 0);
    fake.files.addText(at(".local/share/applications/z.desktop"), entryText("Documents", "~/Documents/x.sh"), 0);
    EXPECT_THAT(names(), IsEmpty());
    start("Kite-2.1/kite", "Kite", code);
    EXPECT_THAT(names(), ElementsAre("Kite"));
    EXPECT_EQ(app("Kite").version, "2.1");
}

TEST_F(LinuxAppsTest, AFolderOfSeveralProgramsOrOfTheUsersWorkIsNoApplication)
{
    const auto start = [&](const std::string &name, const std::string &program) {
        fake.files.addText(at(program),
                           "\x7f"
                           "ELF",
                           1'000);
        fake.files.addText(at(".local/share/applications/" + name + ".desktop"), entryText(name, at(program)), 0);
    };
    start("Kite", "kite/kite");
    start("Photos", "Photos/photos");
    EXPECT_THAT(names(), testing::UnorderedElementsAre("Kite", "Photos"));
    start("Chart", "kite/chart-2.0/chart"); // inside the other application's folder
    addItem("Photos/summer.JPG");
    EXPECT_THAT(names(), ElementsAre("Chart"));
    start("Draw", "kite/Draw.AppImage");
    EXPECT_THAT(names(), testing::UnorderedElementsAre("Chart", "Draw"));
    start("Vault", ".vault/vault"); // a folder for the user's data
    start("Games", "fun/Games/games");
    EXPECT_THAT(names(), testing::UnorderedElementsAre("Chart", "Draw"));
    for (const char *const work : {"Projects/a", "saves/a", "site/.git/a", "cur/1", ".obsidian/a"}) {
        SCOPED_TRACE(work);
        const std::string name = "Pilot" + std::string(work, 3);
        start(name, name + "/" + name);
        EXPECT_EQ(app(name).path, at(name));
        addItem(name + "/" + work);
        EXPECT_THAT(names(), testing::Not(testing::Contains(name)));
    }
}

TEST_F(LinuxAppsTest, ADesktopFileAmongDocumentsIsNotRemovedAlong)
{
    fake.files.setOwnPlace(".local/share", {at("Documents"), at(".local/share")});
    addItem("Kite.AppImage", 1'000);
    fake.files.addText(at("Documents/applications/kite.desktop"), entryText("Kite", at("Kite.AppImage")), 0);
    EXPECT_EQ(app("Kite").launcher, "");
}

TEST_F(LinuxAppsTest, ALinkFromTheHomeLeadsToNoApplicationElsewhere)
{
    fake.files.addFile("/opt/chart/Chart.AppImage", 1'000);
    fake.files.addLink(at("Chart.AppImage"), "/opt/chart/Chart.AppImage");
    fake.files.addText(at(".local/share/applications/c.desktop"), entryText("Chart", "/home/u/Chart.AppImage"), 0);
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

// --- Leftovers

TEST_F(LinuxAppsTest, DataThatBearsTheIdentifierBelongsToTheApplication)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart", "StartupWMClass=ChartWindow\n"));
    addData(".config/org.sea.Chart", 4'000);
    addData(".cache/org.sea.chart", 3'000);
    addData(".local/share/org.sea.Chart", 2'000);
    addData(".local/state/org.sea.Chart", 1'000);
    addData(".config/org.sea.Chart.Other");
    addData(".config/sea-chart", 9);
    addData(".cache/ChartWindow", 8);
    addData(".config/Sea Chart", 7);
    EXPECT_THAT(dataOf("Sea Chart", Match::exact),
                ElementsAre(".config/org.sea.Chart", ".cache/org.sea.chart", ".local/share/org.sea.Chart",
                            ".local/state/org.sea.Chart"));
    EXPECT_THAT(dataOf("Sea Chart", Match::name), ElementsAre(".config/sea-chart", ".cache/ChartWindow"));
}

TEST_F(LinuxAppsTest, AFlatpaksDataIsToldByItsParts)
{
    addFlatpak("org.sea.Chart", "Sea Chart", "/usr/bin/flatpak run --command=sea-chart org.sea.Chart");
    addData(".var/app/org.sea.Chart/data", 4'000);
    addData(".var/app/org.sea.Chart/cache", 3'000);
    addData(".var/app/org.sea.Chart/config", 2'000);
    addItem(".local/share/flatpak/overrides/org.sea.Chart", 1'000);
    addData(".var/app/org.sea.Chart.Other/data");
    addData(".local/share/sea-chart", 5);
    const InstalledApp found = app("Sea Chart");
    std::vector<std::string> labels;
    for (const Leftover &leftover : found.leftovers)
        labels.emplace_back(leftover.location);
    EXPECT_THAT(labels, ElementsAre("Data", "Cache", "Settings", "Permissions", "Data"));
    EXPECT_EQ(found.leftovers[3].path, at(".local/share/flatpak/overrides/org.sea.Chart"));
    EXPECT_EQ(found.leftovers[3].kind, FileNode::Kind::file);
    EXPECT_THAT(dataOf("Sea Chart", Match::name), ElementsAre(".local/share/sea-chart"));
    EXPECT_TRUE(found.proposes(found.leftovers[0]));
    EXPECT_FALSE(found.proposes(found.leftovers[4]));
}

TEST_F(LinuxAppsTest, AFlatpaksFolderThatLeadsElsewhereHoldsNoData)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    addItem("Documents/novel.txt");
    addItem("work/novel.txt");
    for (const char *const elsewhere : {"Documents", "work"}) {
        SCOPED_TRACE(elsewhere);
        if (fake.files.has(at(".var/app/org.sea.Chart")))
            fake.files.take(at(".var/app/org.sea.Chart"));
        else
            fake.files.addFolder(at(".var/app"));
        fake.files.addLink(at(".var/app/org.sea.Chart"), at(elsewhere));
        EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
    }
}

TEST_F(LinuxAppsTest, DocumentsInAFlatpaksFolderAreNotProposed)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    fake.files.setUserFolders({at("Papers")});
    addItem(".var/app/org.sea.Chart/Documents/novel.txt");
    addItem(".var/app/org.sea.Chart/Papers/novel.txt");
    fake.files.addFolder(at(".var/app/org.sea.Chart/Music"));
    addData(".var/app/org.sea.Chart/data");
    EXPECT_THAT(dataOf("Sea Chart", Match::exact),
                testing::UnorderedElementsAre(".var/app/org.sea.Chart/Music", ".var/app/org.sea.Chart/data"));
    EXPECT_EQ(app("Sea Chart").leftovers.size(), 4U);
}

TEST_F(LinuxAppsTest, WhatGoneApplicationsKeptIsNotLeftBehindWhereItHoldsDocuments)
{
    addData(".var/app/org.gone.Tool/data");
    addData("snap/gone/common");
    addItem(".var/app/org.gone.Pad/Documents/novel.txt");
    addItem("snap/pad/12/Documents/novel.txt");
    EXPECT_THAT(orphans(), testing::UnorderedElementsAre(".var/app/org.gone.Tool", "snap/gone"));
}

TEST_F(LinuxAppsTest, ASnapsDataIsProposedUnlessItHoldsDocuments)
{
    addSnap("chart", "Sea Chart");
    addSnap("pad", "Pad");
    addItem("snap/chart/common/x", 3'000);
    addItem("snap/pad/12/Documents/novel.txt", 3'000);
    addItem("snap/pad/common/x", 3'000);
    const InstalledApp chart = app("Sea Chart");
    ASSERT_EQ(chart.leftovers.size(), 1U);
    EXPECT_EQ(chart.leftovers[0].path, at("snap/chart"));
    EXPECT_TRUE(chart.proposes(chart.leftovers[0]));
    const InstalledApp pad = app("Pad");
    ASSERT_EQ(pad.leftovers.size(), 1U);
    EXPECT_FALSE(pad.proposes(pad.leftovers[0]));
}

TEST_F(LinuxAppsTest, DataOfTwoApplicationsOfOneIdentifierIsNoneOfThemAlone)
{
    addFlatpak("org.sea.Chart", "Flat");
    addPackage("chart", "org.sea.Chart", entryText("Packed", "chart-x"));
    addData(".config/org.sea.Chart");
    addData(".var/app/org.sea.Chart/data");
    EXPECT_THAT(dataOf("Packed", Match::exact), IsEmpty());
    EXPECT_THAT(dataOf("Packed", Match::name), ElementsAre(".config/org.sea.Chart"));
    EXPECT_THAT(dataOf("Flat", Match::exact), ElementsAre(".var/app/org.sea.Chart/data"));
}

TEST_F(LinuxAppsTest, ShortAndGenericAndSharedNamesMatchNothing)
{
    addPackage("abc", "abc", entryText("Abc", "python3 /x.py", "StartupWMClass=Electron\n"));
    for (const std::string name : {"abc", "python3", "electron", "Python3"})
        addData(".config/" + name);
    EXPECT_THAT(app("Abc").leftovers, IsEmpty());
}

TEST_F(LinuxAppsTest, TheEndOfAnIdentifierAndAProgramWithoutItsVersionMayNameItsData)
{
    addItem("Apps/Painter-5.2.2-x86_64.AppImage");
    fake.files.addText(at(".local/share/applications/org.kite.Draw.desktop"),
                       entryText("Draw", at("Apps/Painter-5.2.2-x86_64.AppImage")), 0);
    addPackage("pilot", "org.sea.Desktop", entryText("Pilot", "sea-pilot_v2"));
    addPackage("cat", "org.sea.Cat", entryText("Cat", "cat"));
    for (const char *const name : {"draw", "Painter", "sea-pilot", "desktop", "cat", "painter-5.2.2-x86_64"})
        addData(".config/" + std::string(name));
    EXPECT_THAT(dataOf("Draw", Match::name),
                testing::UnorderedElementsAre(".config/draw", ".config/Painter", ".config/painter-5.2.2-x86_64"));
    EXPECT_THAT(dataOf("Draw", Match::exact), IsEmpty());
    EXPECT_THAT(dataOf("Pilot", Match::name), ElementsAre(".config/sea-pilot"));
    EXPECT_THAT(app("Cat").leftovers, IsEmpty()) << "too short, or everybody's";
}

TEST_F(LinuxAppsTest, AFileOrALinkInPlaceOfAFolderIsNoData)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart"));
    addItem(".config/sea-chart");
    addData("dotfiles/chart");
    fake.files.addLink(at(".config/org.sea.Chart"), at("dotfiles/chart"));
    EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
}

TEST_F(LinuxAppsTest, FoldersOfTheUsersOwnVariablesAreSearched)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "x"));
    fake.files.setOwnPlace(".config", {"/data/settings", at(".config")});
    fake.files.addFile("/data/settings/org.sea.Chart/x", 1'000);
    addData(".config/org.sea.Chart");
    const InstalledApp found = app("Sea Chart");
    ASSERT_EQ(found.leftovers.size(), 1U);
    EXPECT_EQ(found.leftovers[0].path, "/data/settings/org.sea.Chart");
}

TEST_F(LinuxAppsTest, AVariableThatNamesTheHomeOrDocumentsLeadsNowhere)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart"));
    addData("sea-chart");
    addData("Documents/sea-chart");
    addData("Papers/sea-chart");
    fake.files.addLink("/alias", home);
    fake.files.setUserFolders({at("Papers")});
    for (const std::string &place :
         {home, at("Documents"), at("Papers"), std::string("/home"), std::string("/"), std::string("/alias")}) {
        SCOPED_TRACE(place);
        fake.files.setOwnPlace(".config", {place, at(".config")});
        EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
    }
}

TEST_F(LinuxAppsTest, DocumentsBehindALinkAreDocuments)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart"));
    fake.files.addLink(at("Documents"), "/data/papers");
    fake.files.addLink(at("Pictures"), at("archive/pictures"));
    for (const char *const folder : {"/data/papers/org.sea.Chart", "/home/u/archive/pictures/org.sea.Chart"}) {
        fake.files.addFolder(folder, longAgo);
        fake.files.addFile(std::string(folder) + "/letter", 1'000, longAgo);
    }
    for (const char *const place : {"/data/papers", "/data", "/home/u/archive/pictures", "/home/u/archive"}) {
        SCOPED_TRACE(place);
        fake.files.setOwnPlace(".config", {place, at(".config")});
        EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
        EXPECT_THAT(orphans(), IsEmpty());
    }
}

TEST_F(LinuxAppsTest, FoldersOfFlatpaksAndSnapsThatLeadAmongDocumentsHoldNoData)
{
    addData("Documents/org.gone.Tool/data");
    addData("Documents/gone/common");
    fake.files.addFolder(at(".var"));
    fake.files.addLink(at(".var/app"), at("Documents"));
    fake.files.addLink(at("snap"), at("Documents"));
    EXPECT_THAT(orphans(), IsEmpty());
    addFlatpak("org.gone.Tool", "Tool");
    addSnap("gone", "Gone");
    EXPECT_THAT(app("Tool").leftovers, IsEmpty());
    EXPECT_THAT(app("Gone").leftovers, IsEmpty());
}

TEST_F(LinuxAppsTest, DocumentsAndProtectedPlacesAreNeverData)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart"));
    addFlatpak("org.port.Pilot", "Pilot");
    addData(".local/share/sea-chart/Papers");
    addData(".var/app/org.port.Pilot/data/Papers");
    addData(".config/org.sea.Chart");
    addData(".config/org.gone.tool");
    addData(".var/app/org.gone.tool/data");
    fake.files.setUserFolders({at(".local/share/sea-chart/Papers"), at(".var/app/org.port.Pilot/data/Papers"),
                               at(".var/app/org.gone.tool/data")});
    locations = ProtectedLocations(home, ProtectedPlaces{.exact = {},
                                                         .prefixes = {},
                                                         .homeExact = {".config/org.sea.Chart"},
                                                         .homePrefixes = {".config/org.gone.tool"}});
    EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
    EXPECT_THAT(app("Pilot").leftovers, IsEmpty());
    EXPECT_THAT(orphans(), IsEmpty());
}

// --- Orphans

TEST_F(LinuxAppsTest, WhatGoneFlatpaksAndSnapsKeptIsLeftBehind)
{
    addFlatpak("org.sea.Chart", "Sea Chart");
    addSnap("pad", "Pad");
    addData(".var/app/org.sea.Chart/data");
    addData(".var/app/org.gone.Tool/data", 3'000, now);
    addData("snap/pad/common");
    addData("snap/gone/common", 2'000, now);
    addItem("snap/note.txt");
    EXPECT_THAT(orphans(), ElementsAre(".var/app/org.gone.Tool", "snap/gone"));
}

TEST_F(LinuxAppsTest, FoldersOfApplicationsThatAreGoneAreLeftBehindAfterThirtyDays)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "x"));
    addData(".config/net.gone.Tool", 5'000);
    addData(".cache/net.gone.Tool", 4'000);
    addData(".local/share/org.sea.Other"); // of a vendor that is still installed
    addData(".config/net.recent.Tool", 1'000, now - std::chrono::days{29});
    addItem(".config/net.written.Tool/log", 1'000, now);
    addData(".config/net.gone");
    addData(".config/gone.net.Tool");
    addItem(".config/net.gone.file");
    EXPECT_THAT(orphans(), ElementsAre(".config/net.gone.Tool", ".cache/net.gone.Tool"));
    EXPECT_EQ(load().orphanGroups[0].id, "net.gone.tool");
}

TEST_F(LinuxAppsTest, WhereWhatIsInstalledCannotBeToldNothingIsLeftBehind)
{
    addData(".var/app/org.gone.Tool/data");
    addData("snap/gone/common");
    addData(".config/net.gone.Tool");
    EXPECT_EQ(orphans().size(), 3U);
    fake.files.addFolder("/var/lib/flatpak/app");
    fake.files.failOpening("/var/lib/flatpak/app");
    EXPECT_THAT(orphans(), ElementsAre("snap/gone"));
    fake.files.addFolder("/var/lib/snapd/snaps");
    fake.files.failOpening("/var/lib/snapd/snaps");
    EXPECT_THAT(orphans(), IsEmpty());
}

TEST_F(LinuxAppsTest, WithMorePlacesForFlatpaksNoneIsSaidToBeGone)
{
    addData(".var/app/org.gone.Tool/data");
    fake.files.addText("/etc/flatpak/installations.d/more.conf", "[Installation \"more\"]\nPath=/more\n");
    EXPECT_THAT(orphans(), IsEmpty());
}

// --- Malformed records

TEST_F(LinuxAppsTest, GarbageInTheDatabasesIsReadWithoutHarm)
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

TEST_F(LinuxAppsTest, FilesOfAbsurdSizesAreNotRead)
{
    setText("/var/lib/dpkg/status", "Package: x\nStatus: a installed\n" + std::string(257UL * 1024 * 1024, 'x'));
    setText("/var/lib/dpkg/info/x.list", "/usr/share/applications/x.desktop\n");
    setText("/usr/share/applications/x.desktop", entryText("X", "x") + std::string(10'000'000, '#'));
    EXPECT_THAT(names(), IsEmpty());
    setText("/var/lib/dpkg/status", "Package: x\nStatus: a installed\nVersion: " + std::string(1'000'000, '1'));
    setText("/usr/share/applications/x.desktop", entryText("X", std::string(200'000, 'x')));
    EXPECT_THAT(names(), ElementsAre("X"));
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
