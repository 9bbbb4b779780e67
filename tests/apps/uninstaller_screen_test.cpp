#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "apps/uninstaller_screen_fixture.h"

namespace corvane {
namespace {

// --- Contents

TEST_F(UninstallerScreenTest, ShowsTheListAndWhatToDoWithIt)
{
    publishAndShow();
    EXPECT_TRUE(shows(QStringLiteral("App Uninstaller")));
    EXPECT_TRUE(shows(QStringLiteral("3 apps use 8.37 GB, including their data")));
    EXPECT_NE(row(orphansRow), nullptr);
    EXPECT_NE(row(deckRow), nullptr);
    EXPECT_TRUE(shows(QStringLiteral("Pick an app")));
    EXPECT_TRUE(shows(
        QStringLiteral("See how much space it really uses, including the caches, preferences and support files it "
                       "keeps in your Library. Or open “Left behind by deleted apps” at the top of the list.")));
    EXPECT_EQ(appNames(),
              QStringList({QStringLiteral("Signal Deck"), QStringLiteral("Atlas"), QStringLiteral("Kite Mail")}));
}

TEST_F(UninstallerScreenTest, WhileTheFirstInventoryIsMadeItSaysSo)
{
    const Gate gate = blockFolders();
    show();
    EXPECT_TRUE(shows(QStringLiteral("Finding your apps and the files they leave behind…")));
    EXPECT_TRUE(shows(QStringLiteral("Measuring apps and their leftovers…")));
    EXPECT_NE(scene->named(QStringLiteral("Measuring apps and their leftovers…"), QAccessible::ProgressBar), nullptr);
    EXPECT_FALSE(button(QStringLiteral("Refresh"))->isEnabled());
    EXPECT_FALSE(isVisible("uninstaller.list"));
}

TEST_F(UninstallerScreenTest, WithoutAnyAppItSaysWhereItLooked)
{
    publish();
    show();
    EXPECT_TRUE(isVisible("uninstaller.nothing"));
    EXPECT_TRUE(
        shows(QStringLiteral("Corvane looks for apps in /Applications and in the Applications folder of your home.")));
    EXPECT_FALSE(isVisible("uninstaller.list"));
    EXPECT_TRUE(button(QStringLiteral("Refresh"))->isEnabled());
}

TEST_F(UninstallerScreenTest, AnAppIsShownWithItsSectionsAndWhatIsAboutToHappen)
{
    openSignalDeck();
    EXPECT_TRUE(shows(QStringLiteral("Version 5.4.1")));
    EXPECT_TRUE(shows(QStringLiteral("Leftovers in your Library")));
    EXPECT_TRUE(shows(QStringLiteral("Possible matches")));
    EXPECT_TRUE(shows(QStringLiteral("App and 2 leftovers · 6.74 GB")));
    EXPECT_NE(button(QStringLiteral("Reveal in Finder")), nullptr);
    EXPECT_TRUE(isChosen(deckRow));
    EXPECT_FALSE(isVisible("uninstaller.none"));
    const std::vector<QQuickItem *> boxes = checkBoxes(deckID);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_TRUE(isChecked(boxes[0]));
    EXPECT_TRUE(isChecked(boxes[1]));
    ASSERT_EQ(checkBoxes(QStringLiteral("Signal Deck")).size(), 1U);
    EXPECT_FALSE(isChecked(checkBoxes(QStringLiteral("Signal Deck"))[0]));
}

// A list hides rows outside the viewport but still uses their heights for layout.
TEST_F(UninstallerScreenTest, AHeadingKeepsItsHeightWhileItIsHidden)
{
    openSignalDeck();
    QQuickItem *const heading = scene->find([](QQuickItem *item) {
        return item->property("note").isValid() && item->property("title") == QStringLiteral("Possible matches");
    });
    ASSERT_NE(heading, nullptr);
    const qreal height = heading->implicitHeight();
    ASSERT_FALSE(heading->property("note").toString().isEmpty());
    heading->setVisible(false);
    EXPECT_EQ(heading->implicitHeight(), height);
}

TEST_F(UninstallerScreenTest, AnAppWithoutLeftoversSaysSo)
{
    publishAndShow();
    choose(kiteRow);
    EXPECT_TRUE(shows(QStringLiteral("None found. This app keeps its data tidy.")));
    EXPECT_TRUE(shows(QStringLiteral("App · 330 MB")));
}

TEST_F(UninstallerScreenTest, WithoutOrphansTheirViewSaysSo)
{
    addApp("Kite Mail", 330'000'000);
    publish();
    show();
    choose(QStringLiteral("Left behind by deleted apps, Nothing left behind"));
    EXPECT_TRUE(isVisible("uninstaller.noOrphans"));
    EXPECT_TRUE(shows(QStringLiteral("No leftovers from deleted apps were found. Nice and clean.")));
}

TEST_F(UninstallerScreenTest, ARunningAppIsWarnedAboutAsLongAsItRuns)
{
    fake.applications.setRunning("/Applications/Signal Deck.app", {17});
    openSignalDeck();
    const QString warning =
        QStringLiteral("Signal Deck is running. Corvane will quit it before uninstalling. Save your work first.");
    EXPECT_TRUE(shows(warning));
    fake.applications.setRunning("/Applications/Signal Deck.app", {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shows(warning); }, patience));
    fake.applications.setRunning("/Applications/Signal Deck.app", {18});
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(warning); }, patience));
}

TEST_F(UninstallerScreenTest, ALongNameLeavesTheSizeWhole)
{
    addApp("A name that is so long that it cannot stand beside its size in any list that is made for people", 9);
    publish();
    show({824, 604});
    const QQuickItem *const size = textItem(QStringLiteral("9 bytes"));
    ASSERT_NE(size, nullptr);
    EXPECT_FALSE(size->property("truncated").toBool());
    EXPECT_LE(size->mapToScene({size->width(), 0}).x(), 300);
}

// --- Search and order

TEST_F(UninstallerScreenTest, TheSearchNarrowsTheList)
{
    publishAndShow();
    tabTo("uninstaller.search");
    type(QStringLiteral("KITEmail"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return appNames() == QStringList{QStringLiteral("Kite Mail")}; }, patience));
    type(QStringLiteral("x"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return appNames().isEmpty(); }, patience));
    EXPECT_TRUE(shows(QStringLiteral("No apps match “KITEmailx”")));
    EXPECT_NE(row(orphansRow), nullptr);
    scene->key(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appNames().size() == 3; }, patience));
}

TEST_F(UninstallerScreenTest, TheSegmentsSortTheListAndTheChosenAppStaysShown)
{
    addThree();
    inventory.apps[0].lastUsed = Time{std::chrono::seconds(2'000)};
    inventory.apps[1].lastUsed = Time{std::chrono::seconds(1'000)};
    publish();
    show();
    scene->click(scene->find([](QQuickItem *item) {
        return item->property("name").toString() == QStringLiteral("Atlas") && item->property("unused").isValid();
    }));
    clickSegment(QStringLiteral("Name"));
    const auto stand = [this](const char *first, const char *second, const char *third) {
        const QStringList expected{QLatin1String(first), QLatin1String(second), QLatin1String(third)};
        return QTest::qWaitFor([&] { return appNames() == expected; }, patience);
    };
    EXPECT_TRUE(stand("Atlas", "Kite Mail", "Signal Deck"));
    clickSegment(QStringLiteral("Last Use"));
    EXPECT_TRUE(stand("Atlas", "Kite Mail", "Signal Deck")) << "of Atlas nobody knows it";
    clickSegment(QStringLiteral("Size"));
    EXPECT_TRUE(stand("Signal Deck", "Atlas", "Kite Mail"));
    EXPECT_TRUE(isChosen(atlasRow));
    EXPECT_EQ(scene->item("uninstaller.rows")->property("currentIndex").toInt(), 2);
}

// --- The keyboard

TEST_F(UninstallerScreenTest, TheArrowsShowOneAppAfterTheOther)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_Down);
    EXPECT_TRUE(isChosen(deckRow));
    press(Qt::Key_Down);
    EXPECT_TRUE(isChosen(atlasRow));
    EXPECT_TRUE(shows(QStringLiteral("App · 900 MB")));
    press(Qt::Key_End);
    EXPECT_TRUE(isChosen(kiteRow));
    press(Qt::Key_Home);
    EXPECT_TRUE(isChosen(orphansRow));
    EXPECT_TRUE(isVisible("uninstaller.orphans"));
}

TEST_F(UninstallerScreenTest, TypingFindsAnApp)
{
    publishAndShow();
    tabTo("uninstaller.list");
    type(QStringLiteral("ki"));
    EXPECT_TRUE(isChosen(kiteRow));
}

TEST_F(UninstallerScreenTest, ReturnLeadsToTheLeftoversAndSpaceTicksThem)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(scene->item("uninstaller.leftovers")->hasActiveFocus());
    press(Qt::Key_Space);
    EXPECT_FALSE(isChecked(checkBoxes(deckID)[0]));
    EXPECT_TRUE(shows(QStringLiteral("App and 1 leftover · 2.74 GB")));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_TRUE(isChecked(checkBoxes(QStringLiteral("Signal Deck"))[0])) << "over the heading";
    press(Qt::Key_Return);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/Application Support/Signal Deck")));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(shows(QStringLiteral("App and 3 leftovers · 7.14 GB")));
}

TEST_F(UninstallerScreenTest, WithoutLeftoversReturnLeadsToTheButton)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(scene->item("uninstaller.uninstall")->hasActiveFocus());
}

TEST_F(UninstallerScreenTest, TheKeyboardBeginsAtTheFirstLeftoverOfEachApp)
{
    addThree();
    inventory.apps.back().leftovers = {leftover("Caches/com.starchart.atlas", 1'000, Leftover::Match::exact)};
    publish();
    show();
    const auto currentRow = [this] {
        return scene->item("uninstaller.leftovers.rows")->property("currentIndex").toInt();
    };
    choose(deckRow);
    EXPECT_EQ(currentRow(), 1);
    tabTo("uninstaller.leftovers");
    press(Qt::Key_End);
    EXPECT_EQ(currentRow(), 4);
    choose(QStringLiteral("Atlas, app 900 MB + data 1 KB, 900 MB"));
    EXPECT_EQ(currentRow(), 1);
}

TEST_F(UninstallerScreenTest, FindLeadsToTheSearchAndDownFromThereToTheList)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(scene->item("uninstaller.search")->hasActiveFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(scene->item("uninstaller.list")->hasActiveFocus());
}

TEST_F(UninstallerScreenTest, WhenTheAppShownIsGoneTheKeyboardGoesBackToTheList)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_TRUE(scene->item("uninstaller.leftovers")->hasActiveFocus());
    inventory.apps.erase(inventory.apps.begin());
    publish();
    settle();
    EXPECT_TRUE(scene->item("uninstaller.list")->hasActiveFocus());
    EXPECT_TRUE(isVisible("uninstaller.none"));
}

TEST_F(UninstallerScreenTest, AQuestionAboutAnAppThatIsGoneIsTakenBack)
{
    openQuestion();
    inventory.apps.erase(inventory.apps.begin());
    publish();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isAsking(); }, patience));
}

TEST_F(UninstallerScreenTest, InTheSmallestWindowTheWarningIsWhole)
{
    fake.applications.setRunning("/Applications/Signal Deck.app", {17});
    addThree();
    publish();
    show({824, 660});
    choose(deckRow);
    const QQuickItem *const warning = textItem(
        QStringLiteral("Signal Deck is running. Corvane will quit it before uninstalling. Save your work first."));
    ASSERT_NE(warning, nullptr);
    EXPECT_FALSE(warning->property("truncated").toBool());
    EXPECT_GT(warning->height(), Theme::instance()->property("bodyLine").toInt());
    EXPECT_LE(warning->mapToScene({0, warning->height()}).y(),
              scene->item("uninstaller.leftovers")->mapToScene({0, 0}).y());
}

TEST_F(UninstallerScreenTest, DeleteAsksWhetherToUninstall)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_Delete);
    EXPECT_FALSE(isAsking()) << "the orphans are no application";
    press(Qt::Key_Down);
    press(Qt::Key_Delete);
    ASSERT_TRUE(QTest::qWaitFor([&] { return isAsking(); }, patience));
    EXPECT_TRUE(shows(QStringLiteral("Uninstall Signal Deck?")));
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return scene->item("uninstaller.list")->hasActiveFocus(); }, patience));
    EXPECT_FALSE(isAsking());
    EXPECT_TRUE(fake.files.exists("/Applications/Signal Deck.app"));
}

TEST_F(UninstallerScreenTest, TheMenuKeyOpensTheMenuOfAnAppAndOfALeftover)
{
    publishAndShow();
    tabTo("uninstaller.list");
    press(Qt::Key_Down);
    const auto opens = [this](const char *menu) {
        return QTest::qWaitFor([&] { return scene->isOpen(menu); }, patience);
    };
    press(Qt::Key_Menu);
    ASSERT_TRUE(opens("uninstaller.menu"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !scene->object("uninstaller.menu")->property("visible").toBool(); }, patience));
    tabTo("uninstaller.leftovers");
    press(Qt::Key_Menu);
    ASSERT_TRUE(opens("uninstaller.leftovers.menu"));
    scene->click(textItem(QStringLiteral("Copy Path")));
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              at("Library/Application Support/com.signaldeck.desktop"));
}

TEST_F(UninstallerScreenTest, AReaderCanChooseAnApp)
{
    publishAndShow();
    QuickScene::accessible(row(kiteRow))->actionInterface()->doAction(QStringLiteral("Press"));
    EXPECT_TRUE(isChosen(kiteRow));
}

// --- The mouse

TEST_F(UninstallerScreenTest, ARightClickOpensTheMenuOfTheAppThatItChooses)
{
    publishAndShow();
    QQuickItem *const kite = row(kiteRow);
    QTest::mouseClick(scene->window(), Qt::RightButton, Qt::NoModifier, kite->mapToScene({60, 20}).toPoint());
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene->isOpen("uninstaller.menu"); }, patience));
    EXPECT_TRUE(isChosen(kiteRow));
    scene->click(textItem(QStringLiteral("Reveal in Finder")));
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal /Applications/Kite Mail.app"));
}

TEST_F(UninstallerScreenTest, EveryLeftoverHasAButtonThatRevealsIt)
{
    openSignalDeck();
    QQuickItem *const reveal = button(QStringLiteral("Reveal in Finder") + QStringLiteral(": Signal Deck"));
    ASSERT_NE(reveal, nullptr);
    scene->click(reveal);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/Application Support/Signal Deck")));
    scene->click(button(QStringLiteral("Reveal in Finder")));
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal /Applications/Signal Deck.app"));
}

TEST_F(UninstallerScreenTest, OrphansGoIntoTheSelectionAndOutOfIt)
{
    publishAndShow();
    choose(orphansRow);
    EXPECT_TRUE(shows(QStringLiteral("Left behind by apps you've deleted")));
    EXPECT_TRUE(shows(QStringLiteral("com.lathe.cadpro")));
    const std::vector<QQuickItem *> boxes = checkBoxes(QStringLiteral("com.lathe.cadpro"));
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_FALSE(isChecked(boxes[0]));
    scene->click(boxes[0]);
    EXPECT_TRUE(isChecked(boxes[0]));
    EXPECT_EQ(store.selectedTotal(), 4'000'000);
    scene->click(boxes[0]);
    EXPECT_TRUE(store.selection().empty());
}

// --- Uninstalling

TEST_F(UninstallerScreenTest, TheQuestionIsAskedBeforeAnythingHappens)
{
    openQuestion();
    EXPECT_TRUE(shows(QStringLiteral("Uninstall Signal Deck?")));
    EXPECT_TRUE(shows(QStringLiteral("The app and 2 leftovers (6.74 GB) go to the Trash, so you can restore them if "
                                     "needed. macOS may ask for your password for apps installed by an installer.")));
    EXPECT_NE(button(QStringLiteral("Move Signal Deck to Trash")), nullptr);
    scene->click(button(QStringLiteral("Cancel")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isAsking(); }, patience));
    EXPECT_FALSE(store.isRemoving());
    EXPECT_TRUE(fake.files.exists("/Applications/Signal Deck.app"));
}

TEST_F(UninstallerScreenTest, TheAnswerMovesTheAppAndWhatIsTicked)
{
    openQuestion();
    scene->click(button(QStringLiteral("Move Signal Deck to Trash")));
    waitForToast();
    EXPECT_EQ(*store.toast(), "Moved 3 items (6.74 GB) to Trash — empty it to free the space");
    EXPECT_FALSE(fake.files.exists("/Applications/Signal Deck.app"));
    EXPECT_TRUE(fake.files.exists(at("Library/Application Support/Signal Deck")));
}

TEST_F(UninstallerScreenTest, WhileTheAppQuitsItCannotBeUninstalledOnceMore)
{
    fake.applications.setRunning("/Applications/Signal Deck.app", {17, 18});
    openQuestion();
    scene->click(button(QStringLiteral("Move Signal Deck to Trash")));
    EXPECT_THAT(fake.log->lines(), testing::IsSupersetOf({"requestQuit /Applications/Signal Deck.app 17",
                                                          "requestQuit /Applications/Signal Deck.app 18"}));
    QQuickItem *const uninstall = scene->item("uninstaller.uninstall");
    EXPECT_FALSE(uninstall->isEnabled());
    EXPECT_TRUE(uninstall->property("busy").toBool());
    EXPECT_TRUE(fake.files.exists("/Applications/Signal Deck.app"));
    waitForToast();
    EXPECT_EQ(*store.toast(), "Moved 3 items (6.74 GB) to Trash — empty it to free the space");
}

// --- Many applications

TEST_F(UninstallerScreenTest, OfFiveHundredAppsOnlyThoseThatAreSeenAreMade)
{
    for (int i = 0; i < 500; ++i)
        addApp("App " + std::to_string(i), 1'000'000 + i);
    publish();
    show();
    EXPECT_LT(appNames().size(), 60);
    tabTo("uninstaller.list");
    press(Qt::Key_End);
    EXPECT_TRUE(QTest::qWaitFor([&] { return row(QStringLiteral("App 0, app 1 MB, 1 MB")) != nullptr; }, patience));
    EXPECT_LT(appNames().size(), 60);
}

} // namespace
} // namespace corvane
