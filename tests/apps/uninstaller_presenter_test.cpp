#include "apps/ui/uninstaller_presenter.h"

#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "apps/apps_ui_fixture.h"
#include "core/store/qt_words.h"
#include "support/patience.h"

namespace corvane {
namespace {

using Content = UninstallerPresenter::Content;
using Shown = UninstallerPresenter::Shown;
using testing::Contains;

class UninstallerPresenterTest : public test::AppsFixture {
protected:
    /// Publishes the inventory and shows the screen.
    void open()
    {
        publish();
        presenter();
    }
    void choose(const QString &name)
    {
        AppListModel &list = *presenter().apps();
        for (int row = 0; row < list.rowCount(); ++row) {
            if (list.data(list.index(row), AppListModel::NameRole).toString() == name)
                presenter().choose(row);
        }
    }
    void openSignalDeck()
    {
        addSignalDeck();
        open();
        choose(QStringLiteral("Signal Deck"));
    }
    void waitForToast()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.toast().has_value(); }, patience));
    }
    [[nodiscard]] AppDetailPresenter &app() { return *presenter().app(); }

    /// Created on first use, with the store's state at that time.
    UninstallerPresenter &presenter()
    {
        if (!made)
            made.emplace(store);
        return *made;
    }

    std::optional<UninstallerPresenter> made;
};

const QString orphans = QStringLiteral("Left behind by deleted apps");

// --- The screen

TEST_F(UninstallerPresenterTest, WithoutAnInventoryOneIsAskedFor)
{
    presenter();
    EXPECT_TRUE(store.appsLoading());
    EXPECT_EQ(presenter().content(), Content::measuring);
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("Finding your apps and the files they leave behind…"));
    EXPECT_EQ(presenter().loadingText(), QStringLiteral("Measuring apps and their leftovers…"));
}

TEST_F(UninstallerPresenterTest, WithAnInventoryNoneIsAskedForUntilTheUserDoes)
{
    addApp("Kite", 5);
    open();
    EXPECT_FALSE(store.appsLoading());
    presenter().refresh();
    EXPECT_TRUE(presenter().isLoading());
    EXPECT_EQ(presenter().content(), Content::list) << "what is known stays";
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("Finding your apps and the files they leave behind…"));
}

TEST_F(UninstallerPresenterTest, TheSubtitleShowsTheNumberOfAppsAndTheirSize)
{
    addSignalDeck();
    addApp("Kite", 260'000'000);
    open();
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("2 apps use 7.4 GB, including their data"));
}

TEST_F(UninstallerPresenterTest, OneAppUsesInTheSingular)
{
    addApp("Kite", 260'000'000);
    open();
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("1 app uses 260 MB, including its data"));
}

TEST_F(UninstallerPresenterTest, WhatTwoAppsShareCountsOnce)
{
    const std::vector<Leftover> shared{leftover("Caches/Kite", 1'000'000, Leftover::Match::name)};
    addApp("Kite", 1'000'000).leftovers = shared;
    addApp("Kite Pro", 1'000'000).leftovers = shared;
    open();
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("2 apps use 3 MB, including their data"));
}

TEST_F(UninstallerPresenterTest, WhereThereIsNothingItSaysSo)
{
    open();
    EXPECT_EQ(presenter().content(), Content::nothing);
    EXPECT_EQ(presenter().subtitle(), QStringLiteral("No apps found"));
    addOrphan("com.lathe.cadpro", "Caches/com.lathe.cadpro", 1);
    publish();
    EXPECT_EQ(presenter().content(), Content::list) << "what deleted ones left is there to look at";
}

// --- Selection

TEST_F(UninstallerPresenterTest, NothingIsChosenAtFirst)
{
    addSignalDeck();
    open();
    EXPECT_EQ(presenter().shown(), Shown::none);
    EXPECT_EQ(presenter().apps()->chosenRow(), -1);
    EXPECT_FALSE(presenter().prepareMenu());
}

TEST_F(UninstallerPresenterTest, AChosenRowIsShown)
{
    openSignalDeck();
    EXPECT_EQ(presenter().shown(), Shown::app);
    EXPECT_EQ(presenter().apps()->chosenRow(), 1);
    EXPECT_EQ(app().name(), QStringLiteral("Signal Deck"));
    presenter().choose(0);
    EXPECT_EQ(presenter().shown(), Shown::orphans);
    presenter().choose(17);
    EXPECT_EQ(presenter().shown(), Shown::orphans) << "there is no such row";
}

TEST_F(UninstallerPresenterTest, TheChosenAppAndItsTicksStayThroughARefresh)
{
    openSignalDeck();
    app().leftovers()->toggle(1);
    addApp("Larger", 90'000'000'000);
    inventory.apps.front().appSize = 1'000'000'000;
    publish();
    EXPECT_EQ(presenter().shown(), Shown::app);
    EXPECT_EQ(presenter().apps()->chosenRow(), 2);
    EXPECT_EQ(app().sizes(), QStringLiteral("app 1 GB + data 6.4 GB"));
    EXPECT_EQ(app().plan(), QStringLiteral("App and 1 leftover · 3 GB"));
    EXPECT_EQ(app().planInTwoLines(), QStringLiteral("App and 1 leftover\n3 GB"));
}

TEST_F(UninstallerPresenterTest, WhenTheChosenAppIsGoneNoneIsChosen)
{
    openSignalDeck();
    addApp("Kite", 5);
    inventory.apps.erase(inventory.apps.begin());
    QSignalSpy changes(&presenter(), &UninstallerPresenter::shownChanged);
    publish();
    EXPECT_EQ(presenter().shown(), Shown::none);
    EXPECT_EQ(presenter().apps()->chosenRow(), -1);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_FALSE(app().canUninstall());
}

TEST_F(UninstallerPresenterTest, TheOrphansStayChosenWhenNoneAreLeft)
{
    addApp("Kite", 5);
    addOrphan("com.lathe.cadpro", "Caches/com.lathe.cadpro", 1);
    open();
    choose(orphans);
    inventory.orphanGroups.clear();
    publish();
    EXPECT_EQ(presenter().shown(), Shown::orphans);
    EXPECT_FALSE(presenter().orphans()->hasItems());
}

TEST_F(UninstallerPresenterTest, TheMenuIsAboutTheAppShown)
{
    openSignalDeck();
    ASSERT_TRUE(presenter().prepareMenu());
    presenter().menuTarget()->reveal();
    EXPECT_THAT(fake.log->lines(), Contains("reveal /Applications/Signal Deck.app"));
}

// --- The application

TEST_F(UninstallerPresenterTest, TheHeaderShowsWhatIsKnown)
{
    InstalledApp &deck = addSignalDeck();
    const QDateTime when(QDate(2026, 11, 20), QTime(12, 0));
    deck.lastUsed = Time{std::chrono::seconds(when.toSecsSinceEpoch())};
    deck.isAppStore = true;
    open();
    choose(QStringLiteral("Signal Deck"));
    EXPECT_EQ(app().facts(), QStringLiteral("Version 5.4.1 · App Store · Last opened ") +
                                 abbreviatedDate(QDate(2026, 11, 20), QLocale()));
    EXPECT_EQ(app().sizes(), QStringLiteral("app 740 MB + data 6.4 GB"));
    EXPECT_EQ(app().total(), QStringLiteral("7.14 GB"));
}

TEST_F(UninstallerPresenterTest, AVersionWithoutEndIsCutOff)
{
    addSignalDeck().version = std::string(4'000'000, '1');
    open();
    choose(QStringLiteral("Signal Deck"));
    EXPECT_EQ(app().facts(), QStringLiteral("Version ") + QString(255, u'1') + u'…');
}

TEST_F(UninstallerPresenterTest, WhatIsNotKnownIsLeftOutOfTheHeader)
{
    addApp("Kite", 5'000'000);
    open();
    choose(QStringLiteral("Kite"));
    EXPECT_EQ(app().facts(), QString());
    EXPECT_EQ(app().sizes(), QStringLiteral("app 5 MB"));
}

TEST_F(UninstallerPresenterTest, TheFooterCountsInTheSingularToo)
{
    openSignalDeck();
    EXPECT_EQ(app().plan(), QStringLiteral("App and 2 leftovers · 6.74 GB"));
    app().leftovers()->toggle(1);
    EXPECT_EQ(app().plan(), QStringLiteral("App and 1 leftover · 2.74 GB"));
    app().leftovers()->toggle(2);
    EXPECT_EQ(app().plan(), QStringLiteral("App · 740 MB"));
    app().leftovers()->toggle(4);
    EXPECT_EQ(app().plan(), QStringLiteral("App and 1 leftover · 1.14 GB"));
}

TEST_F(UninstallerPresenterTest, TheQuestionNamesWhatIsRemoved)
{
    openSignalDeck();
    const QString rest = QStringLiteral(" go to the Trash, so you can restore them if needed. macOS may ask for your "
                                        "password for apps installed by an installer.");
    EXPECT_EQ(app().question(), QStringLiteral("Uninstall Signal Deck?"));
    EXPECT_EQ(app().confirmText(), QStringLiteral("Move Signal Deck to Trash"));
    EXPECT_EQ(app().explanation(), QStringLiteral("The app and 2 leftovers (6.74 GB)") + rest);
    app().leftovers()->toggle(1);
    EXPECT_EQ(app().explanation(), QStringLiteral("The app and 1 leftover (2.74 GB)") + rest);
    app().leftovers()->toggle(2);
    EXPECT_EQ(app().explanation(), QStringLiteral("The app's files (740 MB)") + rest);
}

TEST_F(UninstallerPresenterTest, ANameThatIsTooLongForTheButtonIsShortened)
{
    const std::string name(200, 'W');
    addApp(name, 5);
    open();
    choose(QString::fromStdString(name));
    EXPECT_LT(app().confirmText().size(), 60);
    EXPECT_TRUE(app().confirmText().startsWith(QStringLiteral("Move WW")));
    EXPECT_TRUE(app().confirmText().endsWith(QStringLiteral("WW to Trash")));
    EXPECT_TRUE(app().question().contains(QString::fromStdString(name)));
}

TEST_F(UninstallerPresenterTest, TheBundleIsRevealed)
{
    openSignalDeck();
    app().reveal();
    EXPECT_THAT(fake.log->lines(), Contains("reveal /Applications/Signal Deck.app"));
}

// --- Uninstalling

TEST_F(UninstallerPresenterTest, TheAppAndWhatIsTickedGoToTheTrash)
{
    openSignalDeck();
    app().leftovers()->toggle(1);
    app().uninstall();
    EXPECT_FALSE(app().canUninstall()) << "while it is being removed";
    waitForToast();
    EXPECT_FALSE(fake.files.exists("/Applications/Signal Deck.app"));
    EXPECT_FALSE(fake.files.exists(at("Library/Caches/com.signaldeck.desktop")));
    EXPECT_TRUE(fake.files.exists(at("Library/Application Support/com.signaldeck.desktop"))) << "was not ticked";
    EXPECT_TRUE(fake.files.exists(at("Library/Application Support/Signal Deck"))) << "never was";
    EXPECT_EQ(*store.toast(), "Moved 2 items (2.74 GB) to Trash — empty it to free the space");
}

TEST_F(UninstallerPresenterTest, WithEverythingUntickedTheBundleAloneGoes)
{
    openSignalDeck();
    app().leftovers()->toggle(1);
    app().leftovers()->toggle(2);
    app().uninstall();
    waitForToast();
    EXPECT_EQ(*store.toast(), "Moved 1 item (740 MB) to Trash — empty it to free the space");
    EXPECT_TRUE(fake.files.exists(at("Library/Caches/com.signaldeck.desktop")));
}

} // namespace
} // namespace corvane
