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

/// A Debian desktop in memory, whose user's home is "/home/u". "Now" is a fixed moment.
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
    /// A package with a program of 500 kB and a desktop file, of Debian's database.
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
    /// A file with that text in the place of whatever lies there.
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
    /// A folder of the home with a file in it, neither changed since.
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
    /// The application's data of that match, beneath the home.
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

class UnplainNameTest : public LinuxAppsTest, public testing::WithParamInterface<std::string> {};

TEST_P(UnplainNameTest, MakesNoCommandForATerminal)
{
    addPackage(GetParam(), "chart", entryText("Sea Chart", "chart"));
    addFlatpak("org.sea." + GetParam(), "Flat");
    addSnap(GetParam(), "Snapped");
    EXPECT_THAT(names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Names, UnplainNameTest,
                         testing::Values("chart;rm", "$(chart)", "chart chart", "`x`", "a'b", "a&b", "a|b", "a>b"));

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
    start("chart.sh");                 // the home itself
    start("Documents/chart/chart");    // among documents
    start(".local/share/chart/chart"); // where the data lies
    start(".local/bin/chart");         // of everybody
    start("work/chart/chart");         // what is worked at
    fake.files.addFolder(at("work/chart/.git"));
    EXPECT_THAT(names(), IsEmpty());
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

// --- What belongs to them

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

// --- What is left behind

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
    addData(".local/share/org.sea.Other"); // of a maker that is still here
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

// --- What is no proper record

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

TEST_F(LinuxAppsTest, OnceStoppedNothingMoreIsMeasured)
{
    addPackage("chart", "chart", entryText("Sea Chart", "chart"));
    fake.files.addText("/var/lib/dpkg/status", status);
    const StopFlag stop = true;
    EXPECT_THAT(AppInventory::load(fake.host(), locations, now, stop).apps, IsEmpty());
}

/// That of a user with that home folder and no settings of its own, as long as it lives.
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
