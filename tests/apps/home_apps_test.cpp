#include "apps/home_apps.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/linux_apps_fixture.h"

namespace corvane {
namespace {

using test::entryText;
using testing::ElementsAre;
using testing::IsEmpty;
using Source = InstalledApp::Source;

class HomeAppsTest : public test::LinuxAppsFixture {};

TEST_F(HomeAppsTest, TheVersionOfAnAppImageComesFromItsEntryOrItsName)
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

TEST_F(HomeAppsTest, AShortcutIntoAnotherProgramIsNoApplication)
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

TEST_F(HomeAppsTest, AnAppImageOfTheHomeGoesWithItsDesktopFile)
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

TEST_F(HomeAppsTest, AFolderThatWasUnpackedInTheHomeIsAnApplication)
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

TEST_F(HomeAppsTest, AFolderThatMayHoldTheUsersOwnFilesIsNoApplication)
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

TEST_F(HomeAppsTest, NoMainFolderAndNoFolderOfManyBecomesAnApplication)
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

TEST_F(HomeAppsTest, AFolderOfSeveralProgramsOrOfTheUsersWorkIsNoApplication)
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

TEST_F(HomeAppsTest, ADesktopFileAmongDocumentsIsNotRemovedAlong)
{
    fake.files.setOwnPlace(".local/share", {at("Documents"), at(".local/share")});
    addItem("Kite.AppImage", 1'000);
    fake.files.addText(at("Documents/applications/kite.desktop"), entryText("Kite", at("Kite.AppImage")), 0);
    EXPECT_EQ(app("Kite").launcher, "");
}

TEST_F(HomeAppsTest, ALinkFromTheHomeLeadsToNoApplicationElsewhere)
{
    fake.files.addFile("/opt/chart/Chart.AppImage", 1'000);
    fake.files.addLink(at("Chart.AppImage"), "/opt/chart/Chart.AppImage");
    fake.files.addText(at(".local/share/applications/c.desktop"), entryText("Chart", "/home/u/Chart.AppImage"), 0);
    EXPECT_THAT(names(), IsEmpty());
}

} // namespace
} // namespace corvane
