#include "journeys/journey.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// A home of 9 MiB: Projects 6 (build.tar 4, Exports 2 with one file), Games 2, and a file of 1.
class RemovalJourney : public Journey {
protected:
    void openHome()
    {
        addFile("Projects/build.tar", 4);
        addFile("Projects/Exports/cut.mov", 2);
        addFile("Games/world.dat", 2);
        addFile("archive.zip", 1);
        openAndScan();
        ASSERT_THAT(rows(), ElementsAre("Projects 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    }
    void openProjects()
    {
        openHome();
        driver().click(row(QStringLiteral("Projects")));
        waitForWay("home/Projects");
    }
    void select(const QString &name)
    {
        tick(name);
        waitForSelectionBar();
    }
    void moveToTrash()
    {
        click(QStringLiteral("moveToTrashButton"));
        waitForRemoval();
    }
    void openDeleteQuestion()
    {
        click(QStringLiteral("reviewButton"));
        waitForPopup(QStringLiteral("reviewSheet"));
        click(QStringLiteral("reviewSheet.deletePermanently"));
        waitForPopup(QStringLiteral("deleteConfirm"));
    }
    void waitForRemoval()
    {
        waitUntil([&] { return !store().isRemoving() && !toast().empty(); }, QStringLiteral("the removal's message"));
    }
    [[nodiscard]] std::vector<std::string> trash() const { return Sandbox::instance().trash(); }
    [[nodiscard]] bool toastWarns()
    {
        return driver().find([](const QQuickItem &item) {
            return item.isVisible() && item.property("name").toString() == QStringLiteral("warning-circle");
        }) != nullptr;
    }
};

TEST_F(RemovalJourney, AnItemMovedToTheTrashLiesThereAndEverythingShownFollows)
{
    openProjects();
    select(QStringLiteral("build.tar"));
    EXPECT_TRUE(shows(QStringLiteral("2 files")));

    moveToTrash();

    EXPECT_EQ(toast(), "Moved 1 item (4.2 MB) to Trash — empty it to free the space");
    EXPECT_FALSE(toastWarns());
    EXPECT_FALSE(exists("Projects/build.tar"));
    EXPECT_THAT(trash(), ElementsAre("build.tar"));
    EXPECT_EQ(folder().allocated("data/Trash/files/build.tar"), 4 * mebibyte);
    EXPECT_EQ(way(), "home/Projects");
    EXPECT_THAT(rows(), ElementsAre("Exports 2.1 MB"));
    EXPECT_THAT(tiles(), ElementsAre("Exports"));
    EXPECT_TRUE(shows(QStringLiteral("1 file")));
    waitUntil([&] { return !isShown(QStringLiteral("selectionBar")); }, QStringLiteral("the selection bar to go"));

    press(Qt::Key_Up, Qt::ControlModifier);
    waitForWay("home");
    EXPECT_THAT(rows(), testing::UnorderedElementsAre("Projects 2.1 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("5.2 MB")));
    EXPECT_TRUE(shows(QStringLiteral("3 files")));
}

TEST_F(RemovalJourney, SeveralItemsAreReportedTogether)
{
    openHome();
    tick(QStringLiteral("Games"));
    select(QStringLiteral("archive.zip"));

    moveToTrash();

    EXPECT_EQ(toast(), "Moved 2 items (3.1 MB) to Trash — empty it to free the space");
    EXPECT_THAT(trash(), ElementsAre("Games", "archive.zip"));
    EXPECT_TRUE(folder().has("data/Trash/files/Games/world.dat"));
    EXPECT_THAT(rows(), ElementsAre("Projects 6.3 MB"));
}

TEST_F(RemovalJourney, ReturnInTheReviewMovesToTheTrash)
{
    openHome();
    select(QStringLiteral("Games"));
    click(QStringLiteral("reviewButton"));
    waitForPopup(QStringLiteral("reviewSheet"));

    press(Qt::Key_Return);

    waitForRemoval();
    EXPECT_EQ(toast(), "Moved 1 item (2.1 MB) to Trash — empty it to free the space");
    EXPECT_THAT(trash(), ElementsAre("Games"));
    waitForPopupClosed(QStringLiteral("reviewSheet"));
}

TEST_F(RemovalJourney, DeletingPermanentlyIsAskedAboutAndCannotHappenByAReturnTooMany)
{
    openHome();
    select(QStringLiteral("archive.zip"));
    openDeleteQuestion();

    EXPECT_TRUE(shows(QStringLiteral("Permanently delete 1 item?")));
    EXPECT_TRUE(shows(QStringLiteral("These items will be erased immediately and can't be recovered from the Trash.")));
    EXPECT_TRUE(shows(QStringLiteral("Delete 1 MB Permanently")));
    EXPECT_TRUE(driver().item(QStringLiteral("deleteConfirm.cancel")).hasActiveFocus());

    press(Qt::Key_Return);

    waitForPopupClosed(QStringLiteral("deleteConfirm"));
    EXPECT_FALSE(store().isRemoving());
    EXPECT_TRUE(exists("archive.zip"));
    EXPECT_TRUE(store().isSelected(at("archive.zip")));
    waitForPopup(QStringLiteral("reviewSheet"));
}

TEST_F(RemovalJourney, EscapeCancelsThePermanentDelete)
{
    openHome();
    select(QStringLiteral("archive.zip"));
    openDeleteQuestion();

    press(Qt::Key_Escape);

    waitForPopupClosed(QStringLiteral("deleteConfirm"));
    EXPECT_FALSE(store().isRemoving());
    EXPECT_TRUE(exists("archive.zip"));
    EXPECT_TRUE(store().isSelected(at("archive.zip")));
}

TEST_F(RemovalJourney, TheDeleteButtonDeletesAndLeavesNothingInTheTrash)
{
    openHome();
    tick(QStringLiteral("Games"));
    select(QStringLiteral("archive.zip"));
    openDeleteQuestion();
    EXPECT_TRUE(shows(QStringLiteral("Permanently delete 2 items?")));

    click(QStringLiteral("deleteConfirm.delete"));

    waitForRemoval();
    EXPECT_EQ(toast(), "Deleted 2 items · freed 3.1 MB");
    EXPECT_FALSE(exists("archive.zip"));
    EXPECT_FALSE(exists("Games"));
    EXPECT_THAT(trash(), IsEmpty());
    EXPECT_THAT(rows(), ElementsAre("Projects 6.3 MB"));
    waitForPopupClosed(QStringLiteral("reviewSheet"));
}

TEST_F(RemovalJourney, OneItemDeletedIsReportedInTheSingular)
{
    openHome();
    select(QStringLiteral("archive.zip"));
    openDeleteQuestion();

    click(QStringLiteral("deleteConfirm.delete"));

    waitForRemoval();
    EXPECT_EQ(toast(), "Deleted 1 item · freed 1 MB");
    EXPECT_FALSE(exists("archive.zip"));
}

TEST_F(RemovalJourney, AFolderThatIsShownAndIsRemovedGivesWayToTheOneAroundIt)
{
    openHome();
    select(QStringLiteral("Projects"));
    driver().click(row(QStringLiteral("Projects")));
    waitForWay("home/Projects");

    moveToTrash();

    waitForWay("home");
    EXPECT_THAT(rows(), ElementsAre("Games 2.1 MB", "archive.zip 1 MB"));
    EXPECT_THAT(trash(), ElementsAre("Projects"));
}

TEST_F(RemovalJourney, ANameThatIsNoValidTextIsShownAndMovedToTheTrash)
{
    const std::string name = "caf\xe9 \xff.iso";
    addFile(name, 2);
    openAndScan();
    const QString shown = QStringLiteral("caf\uFFFD \uFFFD.iso");
    ASSERT_THAT(rows(), ElementsAre(shown.toStdString() + " 2.1 MB"));

    select(shown);
    moveToTrash();

    EXPECT_EQ(toast(), "Moved 1 item (2.1 MB) to Trash — empty it to free the space");
    EXPECT_FALSE(exists(name));
    ASSERT_THAT(trash(), SizeIs(1));
    EXPECT_EQ(folder().allocated("data/Trash/files/" + trash().front()), 2 * mebibyte);
}

TEST_F(RemovalJourney, ANameWithALineBreakIsShownOnOneLineAndMovedToTheTrash)
{
    const std::string name = "two\nlines.iso";
    addFile(name, 2);
    openAndScan();
    ASSERT_THAT(rows(), SizeIs(1));
    const std::string shown = rows().front().substr(0, rows().front().rfind(" 2.1 MB"));
    EXPECT_EQ(shown.find('\n'), std::string::npos);
    EXPECT_THAT(shown, StartsWith("two"));
    EXPECT_THAT(shown, EndsWith("lines.iso"));

    select(QString::fromStdString(shown));
    moveToTrash();

    EXPECT_FALSE(exists(name));
    EXPECT_THAT(trash(), ElementsAre(name));
}

TEST_F(RemovalJourney, WhatTheTrashDoesNotTakeStaysAndIsReported)
{
    openHome();
    folder().writeText("data/Trash", "no folder");
    tick(QStringLiteral("Games"));
    select(QStringLiteral("archive.zip"));

    moveToTrash();

    EXPECT_THAT(toast(), StartsWith("Nothing was removed · 2 couldn't be removed (Games: "));
    EXPECT_TRUE(toastWarns());
    EXPECT_TRUE(exists("Games/world.dat"));
    EXPECT_TRUE(exists("archive.zip"));
    EXPECT_THAT(rows(), ElementsAre("Projects 6.3 MB", "Games 2.1 MB", "archive.zip 1 MB"));
    EXPECT_TRUE(shows(QStringLiteral("2 items selected"))) << "to be tried again";
}

TEST_F(RemovalJourney, WhatWasDeletedElsewhereMeanwhileIsReportedAndTheRestIsRemoved)
{
    openHome();
    tick(QStringLiteral("Games"));
    select(QStringLiteral("archive.zip"));
    std::filesystem::remove(at("archive.zip"));

    moveToTrash();

    EXPECT_EQ(toast(), "Moved 1 item (2.1 MB) to Trash — empty it to free the space · 1 couldn't be removed "
                       "(archive.zip: No such file or directory)");
    EXPECT_TRUE(toastWarns());
    EXPECT_THAT(trash(), ElementsAre("Games"));
}

} // namespace
} // namespace corvane
