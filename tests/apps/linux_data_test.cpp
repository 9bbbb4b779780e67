#include "apps/linux_data.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/linux_apps_fixture.h"

namespace corvane {
namespace {

using test::entryText;
using testing::ElementsAre;
using testing::IsEmpty;
using Match = Leftover::Match;

class LinuxDataTest : public test::LinuxAppsFixture {};

// --- Leftovers

TEST_F(LinuxDataTest, DataThatBearsTheIdentifierBelongsToTheApplication)
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

TEST_F(LinuxDataTest, AFlatpaksDataIsListedByItsParts)
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

TEST_F(LinuxDataTest, AFlatpaksFolderThatLeadsElsewhereHoldsNoData)
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

TEST_F(LinuxDataTest, DocumentsInAFlatpaksFolderAreNotProposed)
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

TEST_F(LinuxDataTest, WhatGoneApplicationsKeptIsNotLeftBehindWhereItHoldsDocuments)
{
    addData(".var/app/org.gone.Tool/data");
    addData("snap/gone/common");
    addItem(".var/app/org.gone.Pad/Documents/novel.txt");
    addItem("snap/pad/12/Documents/novel.txt");
    EXPECT_THAT(orphans(), testing::UnorderedElementsAre(".var/app/org.gone.Tool", "snap/gone"));
}

TEST_F(LinuxDataTest, ASnapsDataIsProposedUnlessItHoldsDocuments)
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

TEST_F(LinuxDataTest, DataOfTwoApplicationsOfOneIdentifierIsNoneOfThemAlone)
{
    addFlatpak("org.sea.Chart", "Flat");
    addPackage("chart", "org.sea.Chart", entryText("Packed", "chart-x"));
    addData(".config/org.sea.Chart");
    addData(".var/app/org.sea.Chart/data");
    EXPECT_THAT(dataOf("Packed", Match::exact), IsEmpty());
    EXPECT_THAT(dataOf("Packed", Match::name), ElementsAre(".config/org.sea.Chart"));
    EXPECT_THAT(dataOf("Flat", Match::exact), ElementsAre(".var/app/org.sea.Chart/data"));
}

TEST_F(LinuxDataTest, ShortAndGenericAndSharedNamesMatchNothing)
{
    addPackage("abc", "abc", entryText("Abc", "python3 /x.py", "StartupWMClass=Electron\n"));
    for (const std::string name : {"abc", "python3", "electron", "Python3"})
        addData(".config/" + name);
    EXPECT_THAT(app("Abc").leftovers, IsEmpty());
}

TEST_F(LinuxDataTest, TheEndOfAnIdentifierAndAProgramWithoutItsVersionMayNameItsData)
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

TEST_F(LinuxDataTest, AFileOrALinkInPlaceOfAFolderIsNoData)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "sea-chart"));
    addItem(".config/sea-chart");
    addData("dotfiles/chart");
    fake.files.addLink(at(".config/org.sea.Chart"), at("dotfiles/chart"));
    EXPECT_THAT(app("Sea Chart").leftovers, IsEmpty());
}

TEST_F(LinuxDataTest, FoldersOfTheUsersOwnVariablesAreSearched)
{
    addPackage("chart", "org.sea.Chart", entryText("Sea Chart", "x"));
    fake.files.setOwnPlace(".config", {"/data/settings", at(".config")});
    fake.files.addFile("/data/settings/org.sea.Chart/x", 1'000);
    addData(".config/org.sea.Chart");
    const InstalledApp found = app("Sea Chart");
    ASSERT_EQ(found.leftovers.size(), 1U);
    EXPECT_EQ(found.leftovers[0].path, "/data/settings/org.sea.Chart");
}

TEST_F(LinuxDataTest, AVariableThatNamesTheHomeOrDocumentsLeadsNowhere)
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

TEST_F(LinuxDataTest, DocumentsBehindALinkAreDocuments)
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

TEST_F(LinuxDataTest, FoldersOfFlatpaksAndSnapsThatLeadAmongDocumentsHoldNoData)
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

TEST_F(LinuxDataTest, DocumentsAndProtectedPlacesAreNeverData)
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

TEST_F(LinuxDataTest, WhatGoneFlatpaksAndSnapsKeptIsLeftBehind)
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

TEST_F(LinuxDataTest, FoldersOfApplicationsThatAreGoneAreLeftBehindAfterThirtyDays)
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

TEST_F(LinuxDataTest, WhereWhatIsInstalledCannotBeToldNothingIsLeftBehind)
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

TEST_F(LinuxDataTest, WithMorePlacesForFlatpaksNoneIsSaidToBeGone)
{
    addData(".var/app/org.gone.Tool/data");
    fake.files.addText("/etc/flatpak/installations.d/more.conf", "[Installation \"more\"]\nPath=/more\n");
    EXPECT_THAT(orphans(), IsEmpty());
}

} // namespace
} // namespace corvane
