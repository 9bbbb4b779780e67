#include <QClipboard>
#include <QGuiApplication>

#include "journeys/journey.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

using testing::ElementsAre;

/// A home of 12 MiB: Movies 9 (film 6, Exports 3 with one file), Music 2, and a file of 1.
class WalkJourney : public Journey {
protected:
    void openHome()
    {
        addFile("Movies/film.mkv", 6);
        addFile("Movies/Exports/cut.mov", 3);
        addFile("Music/song.flac", 2);
        addFile("archive.zip", 1);
        openAndScan();
        ASSERT_THAT(rows(), ElementsAre("Movies 9.4 MB", "Music 2.1 MB", "archive.zip 1 MB"));
    }
    void openMovies()
    {
        openHome();
        clickTile("Movies");
        waitForWay("home/Movies");
    }
    std::string focusedTile() { return map().layout().tile(map().focusedTile()).label; }
    void waitForOpened(const std::string &relative)
    {
        waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the file's program"));
        EXPECT_THAT(Sandbox::instance().opened(), ElementsAre(at(relative)));
    }
    void hoverTile(const std::string &name)
    {
        driver().pointAt(map(), tile(name));
        waitUntil([&] { return map().isPillShown(); }, QStringLiteral("the panel beside the pointer"));
    }
};

TEST_F(WalkJourney, AClickOnATileOpensItsFolder)
{
    openHome();

    clickTile("Movies");

    waitForWay("home/Movies");
    EXPECT_THAT(rows(), ElementsAre("film.mkv 6.3 MB", "Exports 3.1 MB"));
    EXPECT_THAT(tiles(), ElementsAre("film.mkv", "Exports"));
    EXPECT_TRUE(shows(QStringLiteral("2 files")));
}

TEST_F(WalkJourney, AClickOnAFolderInsideATileOpensThatFolder)
{
    openHome();

    clickTile("Exports");

    waitForWay("home/Movies/Exports");
    EXPECT_THAT(rows(), ElementsAre("cut.mov 3.1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("1 file")));
}

TEST_F(WalkJourney, AClickOnATileOfAFileOpensNothing)
{
    openMovies();

    clickTile("film.mkv");
    clickTile("Exports");

    waitForWay("home/Movies/Exports");
}

TEST_F(WalkJourney, AClickOnARowOpensItsFolder)
{
    openHome();

    driver().click(row(QStringLiteral("Music")));

    waitForWay("home/Music");
    EXPECT_THAT(rows(), ElementsAre("song.flac 2.1 MB"));
    EXPECT_THAT(tiles(), ElementsAre("song.flac"));
}

TEST_F(WalkJourney, ArrowsAndReturnWalkDownOnTheMap)
{
    openHome();
    tabTo(map());
    EXPECT_EQ(focusedTile(), "Movies") << "the largest comes first";

    press(Qt::Key_Right);
    EXPECT_NE(focusedTile(), "Movies");
    press(Qt::Key_Left);
    EXPECT_EQ(focusedTile(), "Movies");
    press(Qt::Key_Return);

    waitForWay("home/Movies");
    EXPECT_EQ(focusedTile(), "film.mkv");
}

TEST_F(WalkJourney, ArrowsAndReturnWalkDownInTheList)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Tab);

    press(Qt::Key_Down);
    press(Qt::Key_Return);

    waitForWay("home/Music");
    press(Qt::Key_Escape);
    waitForWay("home");
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    waitForWay("home/Movies");
}

TEST_F(WalkJourney, EscapeOnTheMapGoesUpAndTheKeyboardIsOnTheFolderThatItCameFrom)
{
    openHome();
    driver().click(row(QStringLiteral("Music")));
    waitForWay("home/Music");
    tabTo(map());

    press(Qt::Key_Escape);

    waitForWay("home");
    EXPECT_EQ(focusedTile(), "Music");
}

TEST_F(WalkJourney, CtrlUpGoesUpAndStopsAtTheRoot)
{
    openMovies();

    press(Qt::Key_Up, Qt::ControlModifier);
    waitForWay("home");

    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(way(), "home");
    EXPECT_EQ(store().currentFolder(), store().root());
}

TEST_F(WalkJourney, UpButtonGoesUpAndIsDisabledAtTheRoot)
{
    openMovies();

    click(QStringLiteral("upButton"));

    waitForWay("home");
    EXPECT_FALSE(driver().item(QStringLiteral("upButton")).isEnabled());
}

TEST_F(WalkJourney, ACrumbOpensItsFolder)
{
    openHome();
    clickTile("Exports");
    waitForWay("home/Movies/Exports");

    clickCrumb(QStringLiteral("home"));

    waitForWay("home");
    EXPECT_THAT(rows(), ElementsAre("Movies 9.4 MB", "Music 2.1 MB", "archive.zip 1 MB"));
}

TEST_F(WalkJourney, ThePanelBesideThePointerSaysThatAFolderOpens)
{
    openHome();

    hoverTile("Movies");

    EXPECT_TRUE(shows(QStringLiteral("9.4 MB · 75.0% · click to open")));
}

TEST_F(WalkJourney, ThePanelBesideThePointerShowsOnlySizeAndShareOfAFile)
{
    openMovies();

    hoverTile("film.mkv");

    EXPECT_TRUE(shows(QStringLiteral("6.3 MB · 66.7%")));
}

TEST_F(WalkJourney, ThePanelGoesWhenThePointerLeavesTheMap)
{
    openHome();
    hoverTile("Movies");

    driver().pointAtNothing();

    waitUntil([&] { return !shows(QStringLiteral("9.4 MB · 75.0% · click to open")); },
              QStringLiteral("the panel to go"));
}

TEST_F(WalkJourney, OpeningAFolderMovesTheMap)
{
    openHome();

    clickTile("Movies");

    EXPECT_TRUE(map().isChangingFolder());
}

TEST_F(WalkJourney, WithReducedMotionOpeningAFolderIsNotAnimated)
{
    openHome();
    Theme::instance()->setReducedMotion(true);

    clickTile("Movies");

    EXPECT_EQ(way(), "home/Movies");
    EXPECT_FALSE(map().isChangingFolder());
}

TEST_F(WalkJourney, TheMenuOfATileOpensItsFolder)
{
    openHome();

    clickTile("Movies", Qt::RightButton);
    clickText(QStringLiteral("Open"));

    waitForWay("home/Movies");
}

TEST_F(WalkJourney, TheMenuOfATileCopiesItsPath)
{
    openHome();

    clickTile("Exports", Qt::RightButton);
    clickText(QStringLiteral("Copy Path"));

    waitUntil([&] { return QGuiApplication::clipboard()->text() == QString::fromStdString(at("Movies/Exports")); },
              QStringLiteral("the path on the clipboard"));
}

TEST_F(WalkJourney, TheMenuOfARowShowsTheItemInTheFileManager)
{
    openMovies();

    driver().click(row(QStringLiteral("film.mkv")), Qt::RightButton);
    clickText(QStringLiteral("Show in File Manager"));

    waitUntil([&] { return !Sandbox::instance().opened().empty(); }, QStringLiteral("the file manager"));
    EXPECT_THAT(Sandbox::instance().opened(), ElementsAre(at("Movies")));
}

TEST_F(WalkJourney, TheMenuKeyOpensTheMenuOfTheTileWithTheKeyboard)
{
    openHome();
    tabTo(map());

    press(Qt::Key_Menu);
    waitForText(QStringLiteral("Select for Removal"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);

    waitForWay("home/Movies");
}

TEST_F(WalkJourney, OpenOpensAFileInItsOwnProgram)
{
    openMovies();

    clickTile("film.mkv", Qt::RightButton);
    clickText(QStringLiteral("Open"));

    waitForOpened("Movies/film.mkv");
    EXPECT_EQ(way(), "home/Movies");
}

TEST_F(WalkJourney, AFileThatNoProgramOpensSaysSo)
{
    addFile("notes.of-no-known-kind", 1);
    openAndScan();

    driver().click(row(QStringLiteral("notes.of-no-known-kind")), Qt::RightButton);
    clickText(QStringLiteral("Open"));

    waitForToast();
    EXPECT_THAT(toast(), testing::StartsWith("Can't open notes.of-no-known-kind: "));
}

TEST_F(WalkJourney, ADoubleClickOnAFileOpensItInTheListAndOnTheMap)
{
    openMovies();

    driver().doubleClick(row(QStringLiteral("film.mkv")));
    waitForOpened("Movies/film.mkv");

    driver().doubleClickAt(map(), tile("film.mkv"));
    waitUntil([&] { return Sandbox::instance().opened().size() == 2; }, QStringLiteral("the program once more"));
    EXPECT_EQ(Sandbox::instance().opened().back(), at("Movies/film.mkv"));
}

TEST_F(WalkJourney, TheSecondClickOnAFolderHitsNothingOfWhatItHolds)
{
    openHome();

    driver().doubleClick(row(QStringLiteral("Movies")));
    waitForWay("home/Movies");
    EXPECT_TRUE(Sandbox::instance().opened().empty()) << "film.mkv stands where Movies stood";

    press(Qt::Key_Up, Qt::ControlModifier);
    waitForWay("home");
    driver().doubleClickAt(map(), tile("Movies"));
    waitForWay("home/Movies");
    EXPECT_TRUE(Sandbox::instance().opened().empty());
}

// --- Back and forward

TEST_F(WalkJourney, AltLeftAndRightWalkBackAndForward)
{
    openHome();
    clickTile("Exports");
    waitForWay("home/Movies/Exports");
    clickCrumb(QStringLiteral("Movies"));
    waitForWay("home/Movies");

    press(Qt::Key_Left, Qt::AltModifier);
    waitForWay("home/Movies/Exports");
    press(Qt::Key_Left, Qt::AltModifier);
    waitForWay("home");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(way(), "home") << "nothing was shown before";

    press(Qt::Key_Right, Qt::AltModifier);
    waitForWay("home/Movies/Exports");
    press(Qt::Key_Right, Qt::AltModifier);
    waitForWay("home/Movies");
}

TEST_F(WalkJourney, TheButtonsOfTheMouseWalkBackAndForward)
{
    openMovies();

    driver().click(map(), Qt::BackButton);
    waitForWay("home");
    driver().click(row(QStringLiteral("Music")), Qt::ForwardButton);
    waitForWay("home/Movies");
}

TEST_F(WalkJourney, BackAndForwardStandInTheMenu)
{
    openMovies();

    click(QStringLiteral("appMenuButton"));
    click(QStringLiteral("appMenu.back"));

    waitForWay("home");
    click(QStringLiteral("appMenuButton"));
    click(QStringLiteral("appMenu.forward"));
    waitForWay("home/Movies");
}

TEST_F(WalkJourney, TheWayBackOutlivesAnotherScreen)
{
    openMovies();
    store().setSidebar(StorageStore::SidebarItem::overview);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(store().currentFolder()->name, "Movies") << "the map is not shown";
    store().setSidebar(StorageStore::SidebarItem::explorer);

    press(Qt::Key_Left, Qt::AltModifier);
    waitForWay("home");
}

TEST_F(WalkJourney, BackspaceGoesUpFromTheListAndFromTheMap)
{
    openHome();
    clickTile("Exports");
    waitForWay("home/Movies/Exports");
    tabTo(map());

    press(Qt::Key_Backspace);
    waitForWay("home/Movies");
    press(Qt::Key_Tab);
    press(Qt::Key_Backspace);
    waitForWay("home");
    press(Qt::Key_Backspace);
    EXPECT_EQ(way(), "home");
}

TEST_F(WalkJourney, TypingFindsInTheListAndOnTheMap)
{
    openHome();
    tabTo(map());
    press(Qt::Key_A);
    EXPECT_EQ(focusedTile(), "archive.zip");

    press(Qt::Key_Tab);
    press(Qt::Key_M);
    EXPECT_EQ(driver().item(QStringLiteral("contents")).property("currentIndex").toInt(), 1) << "the next with M";
    press(Qt::Key_M);
    press(Qt::Key_Return);
    waitForWay("home/Movies");
}

TEST_F(WalkJourney, ReturnOpensAFile)
{
    openMovies();
    tabTo(map());
    press(Qt::Key_Tab);

    press(Qt::Key_F);
    press(Qt::Key_Return);

    waitForOpened("Movies/film.mkv");
}

} // namespace
} // namespace corvane
