#include "journeys/selection_journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;

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

} // namespace
} // namespace corvane
