#include "journeys/selection_journey.h"

namespace corvane {
namespace {

TEST_F(SelectionJourney, ATickedItemShowsInTheBarOnTheMapAndInItsRow)
{
    openHome();

    tick(QStringLiteral("Projects"));

    waitForSelectionBar();
    EXPECT_TRUE(shows(QStringLiteral("1 item selected")));
    EXPECT_TRUE(shows(QStringLiteral("6.3 MB can be reclaimed")));
    EXPECT_EQ(checkState(QStringLiteral("Projects")), Qt::Checked);
    EXPECT_EQ(checkState(QStringLiteral("Games")), Qt::Unchecked);
    EXPECT_EQ(way(), "home") << "the check box does not open the folder";

    tick(QStringLiteral("Games"));
    waitForText(QStringLiteral("2 items selected"));
    EXPECT_TRUE(shows(QStringLiteral("8.4 MB can be reclaimed")));

    click(QStringLiteral("clearButton"));
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    EXPECT_EQ(checkState(QStringLiteral("Projects")), Qt::Unchecked);
}

TEST_F(SelectionJourney, AFolderAndAnItemInsideItCountOnce)
{
    openHome();
    openFolder(QStringLiteral("Projects"));
    tick(QStringLiteral("Exports"));
    waitForSelectionBar();
    EXPECT_TRUE(shows(QStringLiteral("2.1 MB can be reclaimed")));

    goUp();
    EXPECT_EQ(checkState(QStringLiteral("Projects")), Qt::PartiallyChecked);
    tick(QStringLiteral("Projects"));

    waitForText(QStringLiteral("6.3 MB can be reclaimed"));
    EXPECT_TRUE(shows(QStringLiteral("1 item selected")));
}

TEST_F(SelectionJourney, SpaceSelectsTheTileWithTheKeyboard)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Right);
    const std::string name = map().layout().tile(map().focusedTile()).label;
    ASSERT_NE(name, "Documents");

    press(Qt::Key_Space);

    waitForText(QStringLiteral("1 item selected"));
    EXPECT_TRUE(store().isSelected(at(name)));
    press(Qt::Key_Space);
    EXPECT_TRUE(store().selection().empty());
}

TEST_F(SelectionJourney, SpaceSelectsTheRowWithTheKeyboard)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Tab);
    press(Qt::Key_End);

    press(Qt::Key_Space);

    waitForText(QStringLiteral("1 MB can be reclaimed"));
    EXPECT_EQ(checkState(QStringLiteral("archive.zip")), Qt::Checked);
}

TEST_F(SelectionJourney, AProtectedFolderCannotBeSelectedByItsCheckBox)
{
    openHome();

    tick(QStringLiteral("Documents"));

    expectNothingSelected();
    EXPECT_EQ(checkState(QStringLiteral("Documents")), Qt::Unchecked);
    waitForText(QStringLiteral("Protected location"));
}

TEST_F(SelectionJourney, AProtectedFolderCannotBeSelectedByTheSpaceBar)
{
    openHome();
    tabTo(map());
    ASSERT_EQ(map().layout().tile(map().focusedTile()).label, "Documents");

    const std::string reason = "Documents can't be selected: protected location";
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete}) {
        press(key);
        waitForToast();
        EXPECT_EQ(toast(), reason);
        expectNothingSelected();
        store().dismissToast();
    }

    press(Qt::Key_Tab);
    press(Qt::Key_Home);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete}) {
        press(key);
        waitForToast();
        EXPECT_EQ(toast(), reason);
        expectNothingSelected();
        store().dismissToast();
    }
}

TEST_F(SelectionJourney, SpaceInsideASelectedFolderSaysThatItGoesWithIt)
{
    openHome();
    tick(QStringLiteral("Projects"));
    waitForSelectionBar();
    openFolder(QStringLiteral("Projects"));
    tabTo(map());

    press(Qt::Key_Space);

    waitForToast();
    EXPECT_EQ(toast(), "build.tar can't be selected: inside a selected folder");
}

TEST_F(SelectionJourney, DeleteSelectsTheCurrentItemInTheListAndOnTheMap)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Tab);
    press(Qt::Key_G);
    press(Qt::Key_Delete);
    EXPECT_EQ(checkState(QStringLiteral("Games")), Qt::Checked);
    press(Qt::Key_Delete);
    EXPECT_EQ(checkState(QStringLiteral("Games")), Qt::Checked) << "it stays selected";
    EXPECT_TRUE(exists("Games/world.dat"));

    press(Qt::Key_Tab, Qt::ShiftModifier);
    press(Qt::Key_P);
    press(Qt::Key_Delete);
    EXPECT_EQ(checkState(QStringLiteral("Projects")), Qt::Checked);
}

TEST_F(SelectionJourney, CtrlASelectsWhatIsListedButNothingProtected)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Tab);

    press(Qt::Key_A, Qt::ControlModifier);

    waitForText(QStringLiteral("3 items selected"));
    EXPECT_EQ(checkState(QStringLiteral("Documents")), Qt::Unchecked);
    EXPECT_EQ(checkState(QStringLiteral("archive.zip")), Qt::Checked);
    store().clearSelection();

    press(Qt::Key_Tab, Qt::ShiftModifier);
    ASSERT_TRUE(map().hasActiveFocus());
    press(Qt::Key_A, Qt::ControlModifier);
    waitForText(QStringLiteral("3 items selected"));
}

TEST_F(SelectionJourney, TheBarThatAppearsMovesNoTile)
{
    openHome();
    const QRectF place = map().mapRectToScene(map().boundingRect());
    const std::vector<QRectF> before = tileRects();

    tick(QStringLiteral("Projects"));
    waitForSelectionBar();

    EXPECT_EQ(map().mapRectToScene(map().boundingRect()), place);
    EXPECT_EQ(tileRects(), before);
    click(QStringLiteral("clearButton"));
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    EXPECT_EQ(tileRects(), before);
}

TEST_F(SelectionJourney, AFolderOpenedAboveTheBarHasAllItsTilesAboveIt)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();

    openFolder(QStringLiteral("Projects"));

    const double barTop = driver().item(QStringLiteral("selectionBar")).mapToScene(QPointF()).y();
    for (const QRectF &rect : tileRects())
        EXPECT_LT(map().mapRectToScene(rect).bottom(), barTop);
    const std::vector<QRectF> before = tileRects();
    driver().pointAtNothing();
    store().clearSelection();
    waitUntil([&] { return tileRects() != before; }, QStringLiteral("the map to take the room of the bar"));
}

TEST_F(SelectionJourney, NothingUnderThePointerMovesWhenTheBarGoes)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    openFolder(QStringLiteral("Projects"));
    const std::vector<QRectF> before = tileRects();
    driver().pointAt(map(), tile("build.tar"));

    store().clearSelection();
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));

    EXPECT_EQ(tileRects(), before);
}

TEST_F(SelectionJourney, TheListEndsAboveTheBar)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();

    const QQuickItem &list = driver().item(QStringLiteral("contents"));
    EXPECT_LE(list.mapRectToScene(list.boundingRect()).bottom(),
              driver().item(QStringLiteral("selectionBar")).mapToScene(QPointF()).y());
}

TEST_F(SelectionJourney, AClickOnTheBarHitsNoTileBeneath)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();

    driver().clickAt(driver().item(QStringLiteral("selectionBar")), QPointF(300, 10));
    driver().clickAt(driver().item(QStringLiteral("selectionBar")), QPointF(300, 10), Qt::RightButton);

    EXPECT_EQ(way(), "home");
    EXPECT_EQ(map().hoveredTile(), -1);
    EXPECT_FALSE(shows(QStringLiteral("Copy Path")));
}

TEST_F(SelectionJourney, AProtectedFolderCannotBeSelectedByItsMenu)
{
    openHome();

    clickTile("Documents", Qt::RightButton);
    waitForText(QStringLiteral("Select for Removal"));

    EXPECT_FALSE(isEnabledInMenu(QStringLiteral("Select for Removal")));
    clickText(QStringLiteral("Select for Removal"));
    expectNothingSelected();
}

TEST_F(SelectionJourney, AFileInsideAProtectedFolderCanBeSelected)
{
    openHome();
    openFolder(QStringLiteral("Documents"));

    tick(QStringLiteral("thesis.pdf"));

    waitForSelectionBar();
    EXPECT_TRUE(shows(QStringLiteral("7.3 MB can be reclaimed")));
}

TEST_F(SelectionJourney, TheMenuOfATileSelectsAndDeselectsIt)
{
    openHome();

    clickTile("Games", Qt::RightButton);
    clickText(QStringLiteral("Select for Removal"));
    waitForText(QStringLiteral("1 item selected"));
    EXPECT_EQ(checkState(QStringLiteral("Games")), Qt::Checked);
    waitForSelectionBar();

    clickTile("Games", Qt::RightButton);
    clickText(QStringLiteral("Deselect"));
    waitUntil([&] { return store().selection().empty(); }, QStringLiteral("an empty selection"));
}

TEST_F(SelectionJourney, TheMenuKeySelectsTheRowWithTheKeyboard)
{
    openHome();
    tabTo(map());
    press(Qt::Key_Tab);
    press(Qt::Key_Down);

    press(Qt::Key_Menu);
    clickText(QStringLiteral("Select for Removal"));

    waitForText(QStringLiteral("6.3 MB can be reclaimed"));
    EXPECT_TRUE(store().isSelected(at("Projects")));
}

TEST_F(SelectionJourney, TheSelectionOutlivesARescan)
{
    openHome();
    tick(QStringLiteral("Projects"));
    waitForSelectionBar();
    addFile("Projects/extra.mkv", 2);

    press(Qt::Key_R, Qt::ControlModifier);

    waitForText(QStringLiteral("8.4 MB can be reclaimed"));
    EXPECT_TRUE(shows(QStringLiteral("1 item selected")));
}

} // namespace
} // namespace corvane
