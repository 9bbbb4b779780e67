#include <QAbstractItemModel>

#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;

/// A home of 16 MiB: Documents 7 (a file of 7), Projects 6 (film 4, Exports 2 with one file), Games 2, a file of 1.
class SelectionJourney : public Journey {
protected:
    void openHome()
    {
        addFile("Documents/thesis.pdf", 7);
        addFile("Projects/build.tar", 4);
        addFile("Projects/Exports/cut.mov", 2);
        addFile("Games/world.dat", 2);
        addFile("archive.zip", 1);
        openAndScan();
        ASSERT_THAT(rows(), ElementsAre("Documents 7.3 MB", "Projects 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    }
    void openFolder(const QString &name)
    {
        driver().click(row(name));
        waitForWay("home/" + name.toStdString());
    }
    void goUp()
    {
        press(Qt::Key_Up, Qt::ControlModifier);
        waitForWay("home");
    }
    /// Selects Projects, Exports inside it, and Games: three entries, two of them effective.
    void selectParentChildAndOther()
    {
        openFolder(QStringLiteral("Projects"));
        tick(QStringLiteral("Exports"));
        goUp();
        tick(QStringLiteral("Projects"));
        tick(QStringLiteral("Games"));
        waitForSelectionBar();
        ASSERT_EQ(store().selection().size(), 3U);
    }
    void openReview()
    {
        click(QStringLiteral("reviewButton"));
        waitForPopup(QStringLiteral("reviewSheet"));
    }
    /// The entries of the review sheet, from the top: "Projects ~/Projects 6.3 MB".
    std::vector<std::string> reviewed()
    {
        std::vector<std::string> entries;
        const auto *const list = driver().item(QStringLiteral("reviewSheet.list")).property("model").value<QObject *>();
        const auto &model = *qobject_cast<const QAbstractItemModel *>(list);
        const auto text = [&](int row, const QByteArray &role) {
            return model.index(row, 0).data(model.roleNames().key(role)).toString().toStdString();
        };
        for (int row = 0; row < model.rowCount(); ++row)
            entries.push_back(text(row, "name") + " " + text(row, "path") + " " + text(row, "size"));
        return entries;
    }
    /// Deselects an entry with its button.
    void dropFromReview(const QString &name)
    {
        driver().click(driver().itemWhere(
            [&](const QQuickItem &item) {
                return item.objectName() == QStringLiteral("reviewSheet.drop") &&
                       item.property("text").toString() == QStringLiteral("Remove %1 from the selection").arg(name);
            },
            QStringLiteral("the button that drops %1").arg(name)));
    }
    std::vector<QRectF> tileRects()
    {
        std::vector<QRectF> rects;
        for (int i = 0; i < map().layout().count(); ++i)
            rects.push_back(map().layout().rect(i));
        return rects;
    }
    int checkState(const QString &name) { return row(name).property("checkState").toInt(); }
    void expectNothingSelected()
    {
        EXPECT_TRUE(store().selection().empty());
        EXPECT_FALSE(isShown(QStringLiteral("selectionBar")));
    }
};

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

TEST_F(SelectionJourney, ReviewListsWhatCounts)
{
    openHome();
    selectParentChildAndOther();

    openReview();

    EXPECT_TRUE(shows(QStringLiteral("Selected for removal")));
    EXPECT_TRUE(shows(QStringLiteral("2 items · 8.4 MB")));
    EXPECT_THAT(reviewed(), ElementsAre("Projects ~/Projects 6.3 MB", "Games ~/Games 2.1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("~/Projects")));
}

TEST_F(SelectionJourney, DroppingAFolderInTheReviewBringsUpWhatItCovered)
{
    openHome();
    selectParentChildAndOther();
    openReview();

    dropFromReview(QStringLiteral("Projects"));

    waitForText(QStringLiteral("2 items · 4.2 MB"));
    EXPECT_THAT(reviewed(), testing::UnorderedElementsAre("Exports ~/Projects/Exports 2.1 MB", "Games ~/Games 2.1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("4.2 MB can be reclaimed"))) << "the bar below follows";
}

TEST_F(SelectionJourney, DroppingTheLastEntryClosesTheReview)
{
    openHome();
    tick(QStringLiteral("Projects"));
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    openReview();

    dropFromReview(QStringLiteral("Projects"));
    waitForText(QStringLiteral("1 item · 2.1 MB"));
    EXPECT_THAT(reviewed(), ElementsAre("Games ~/Games 2.1 MB"));
    dropFromReview(QStringLiteral("Games"));

    waitForPopupClosed(QStringLiteral("reviewSheet"));
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));
    EXPECT_TRUE(exists("Projects/build.tar"));
    EXPECT_TRUE(exists("Games/world.dat"));
}

TEST_F(SelectionJourney, EscapeClosesTheReviewAndKeepsTheSelection)
{
    openHome();
    tick(QStringLiteral("Projects"));
    waitForSelectionBar();
    openReview();

    press(Qt::Key_Escape);

    waitForPopupClosed(QStringLiteral("reviewSheet"));
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

// --- Stable positions

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

TEST_F(SelectionJourney, TheReviewKeepsItsPlaceWhileEntriesAreDropped)
{
    openHome();
    for (const char *name : {"Projects", "Games", "archive.zip"})
        tick(QString::fromLatin1(name));
    waitForSelectionBar();
    openReview();
    const QQuickItem &list = driver().item(QStringLiteral("reviewSheet.list"));
    const QRectF place = list.mapRectToScene(list.boundingRect());
    const QQuickItem &cancel = driver().item(QStringLiteral("reviewSheet.cancel"));
    const QPointF button = cancel.mapToScene(QPointF());

    // Click twice at the same point: the second click deselects the entry that has moved up.
    const QPointF firstDrop(list.width() - 24, 23);
    driver().clickAt(list, firstDrop);
    waitForText(QStringLiteral("2 items · 3.1 MB"));
    driver().rest();
    EXPECT_EQ(list.mapRectToScene(list.boundingRect()), place);
    EXPECT_EQ(cancel.mapToScene(QPointF()), button);
    driver().clickAt(list, firstDrop);
    waitForText(QStringLiteral("1 item · 1 MB"));
    EXPECT_EQ(list.mapRectToScene(list.boundingRect()), place);
    EXPECT_THAT(reviewed(), ElementsAre("archive.zip ~/archive.zip 1 MB"));

    press(Qt::Key_Escape);
    waitForPopupClosed(QStringLiteral("reviewSheet"));
    openReview();
    EXPECT_LT(driver().item(QStringLiteral("reviewSheet.list")).height(), place.height()) << "made for what there is";
}

TEST_F(SelectionJourney, TheReviewShowsItsRowsEachTimeItIsOpened)
{
    openHome();
    tick(QStringLiteral("Projects"));
    waitForSelectionBar();
    for (int opening = 0; opening < 3; ++opening) {
        openReview();
        EXPECT_TRUE(shows(QStringLiteral("~/Projects"))) << opening;
        EXPECT_GT(driver().item(QStringLiteral("reviewSheet.list")).height(), 30) << opening;
        press(Qt::Key_Escape);
        waitForPopupClosed(QStringLiteral("reviewSheet"));
    }
}

TEST_F(SelectionJourney, TypingFindsInTheReview)
{
    openHome();
    for (const char *name : {"Projects", "Games", "archive.zip"})
        tick(QString::fromLatin1(name));
    waitForSelectionBar();
    openReview();
    tabTo(driver().item(QStringLiteral("reviewSheet.list")));

    press(Qt::Key_A);
    press(Qt::Key_Delete);

    waitForText(QStringLiteral("2 items · 8.4 MB"));
    EXPECT_THAT(reviewed(), ElementsAre("Projects ~/Projects 6.3 MB", "Games ~/Games 2.1 MB"));
}

TEST_F(SelectionJourney, AnEntryOfTheReviewOpensByDoubleClickAndByItsMenu)
{
    openHome();
    tick(QStringLiteral("Games"));
    waitForSelectionBar();
    openReview();
    driver().doubleClickAt(driver().item(QStringLiteral("reviewSheet.list")), QPointF(200, 23));
    waitUntil([&] { return Sandbox::instance().opened().size() == 1; }, QStringLiteral("the file manager"));
    EXPECT_EQ(Sandbox::instance().opened().back(), at("Games"));

    driver().clickAt(driver().item(QStringLiteral("reviewSheet.list")), QPointF(200, 23), Qt::RightButton);
    clickText(QStringLiteral("Open"));
    waitUntil([&] { return Sandbox::instance().opened().size() == 2; }, QStringLiteral("the file manager once more"));
    EXPECT_TRUE(isShown(QStringLiteral("reviewSheet.list")));
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
