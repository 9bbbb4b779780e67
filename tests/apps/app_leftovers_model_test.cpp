#include "apps/ui/app_leftovers_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "apps/apps_ui_fixture.h"

namespace corvane {
namespace {

using Model = AppLeftoversModel;
using testing::ElementsAre;
using testing::IsEmpty;

class AppLeftoversModelTest : public test::AppsFixture {
protected:
    [[nodiscard]] QString text(int row, int role = Model::TitleRole) const
    {
        return model.data(model.index(row), role).toString();
    }
    [[nodiscard]] bool isTicked(int row) const
    {
        return model.data(model.index(row), Model::CheckStateRole).toInt() == Qt::Checked;
    }
    [[nodiscard]] std::vector<std::string> chosen() const
    {
        std::vector<std::string> paths;
        for (const Leftover &leftover : model.chosenLeftovers())
            paths.push_back(leftover.path.substr(at("Library/").size()));
        return paths;
    }

    Model model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

const std::string support = "Application Support/com.signaldeck.desktop";
const std::string caches = "Caches/com.signaldeck.desktop";
const std::string named = "Application Support/Signal Deck";

TEST_F(AppLeftoversModelTest, AnExcessiveIdentifierIsTruncated)
{
    InstalledApp app = addSignalDeck();
    app.bundleID = std::string(4'000'000, 'x');
    model.show(app);
    EXPECT_EQ(text(0, Model::NoteRole),
              QStringLiteral("Matched by the app's ID (%1…), so these belong to it.").arg(QString(255, u'x')));
}

TEST_F(AppLeftoversModelTest, TheSectionsSayWhatTheyAreWhyAndWhatTheyComeTo)
{
    model.show(addSignalDeck());
    ASSERT_EQ(model.rowCount(), 5);
    EXPECT_EQ(text(0), QStringLiteral("Leftovers in your Library"));
    EXPECT_EQ(text(0, Model::NoteRole),
              QStringLiteral("Matched by the app's ID (com.signaldeck.desktop), so these belong to it."));
    EXPECT_EQ(text(0, Model::SizeTextRole), QStringLiteral("6 GB"));
    EXPECT_EQ(text(3), QStringLiteral("Possible matches"));
    EXPECT_EQ(text(3, Model::NoteRole),
              QStringLiteral("Folders with the same name as the app. Probably its data, but check before removing."));
    EXPECT_EQ(text(3, Model::SizeTextRole), QStringLiteral("400 MB"));
    EXPECT_EQ(text(1), QStringLiteral("com.signaldeck.desktop"));
    EXPECT_EQ(text(1, Model::LocationRole), QStringLiteral("Application Support"));
    EXPECT_EQ(text(1, Model::SizeTextRole), QStringLiteral("4 GB"));
    EXPECT_EQ(text(1, Model::DescriptionRole), QStringLiteral("com.signaldeck.desktop, Application Support, 4 GB"));
}

TEST_F(AppLeftoversModelTest, WithoutLeftoversItSaysSo)
{
    model.show(addApp("Kite", 5));
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(text(0), QStringLiteral("Leftovers in your Library"));
    EXPECT_EQ(text(0, Model::SizeTextRole), QString());
    EXPECT_EQ(text(1), QStringLiteral("None found. This app keeps its data tidy."));
    EXPECT_FALSE(model.flags(model.index(1)).testFlag(Qt::ItemIsEnabled));
    EXPECT_FALSE(model.hasItems());
}

TEST_F(AppLeftoversModelTest, AnotherAppReplacesWhatIsListedAndARefreshDoesNot)
{
    QSignalSpy replacements(&model, &Model::replaced);
    const InstalledApp deck = addSignalDeck();
    model.show(deck);
    EXPECT_EQ(replacements.size(), 1);
    EXPECT_TRUE(model.hasItems());
    model.update(deck);
    EXPECT_EQ(replacements.size(), 1);
}

TEST_F(AppLeftoversModelTest, WithPossibleMatchesOnlyThereIsTheirSectionOnly)
{
    InstalledApp &app = addApp("Kite", 5);
    app.leftovers = {leftover("Caches/Kite", 7, Leftover::Match::name)};
    model.show(app);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(text(0), QStringLiteral("Possible matches"));
}

TEST_F(AppLeftoversModelTest, WhatBelongsToTheAppForCertainIsTickedAndWhatSharesItsNameIsNot)
{
    model.show(addSignalDeck());
    EXPECT_TRUE(isTicked(1));
    EXPECT_TRUE(isTicked(2));
    EXPECT_FALSE(isTicked(4));
    EXPECT_THAT(chosen(), ElementsAre(support, caches));
}

TEST_F(AppLeftoversModelTest, AnItemCanBeUncheckedAndCheckedAgain)
{
    model.show(addSignalDeck());
    QSignalSpy changes(&model, &Model::chosenChanged);
    model.toggle(1);
    model.toggle(4);
    EXPECT_THAT(chosen(), ElementsAre(caches, named));
    model.toggle(1);
    EXPECT_THAT(chosen(), ElementsAre(support, caches, named));
    EXPECT_EQ(changes.size(), 3);
    model.toggle(0);
    model.toggle(9);
    EXPECT_EQ(changes.size(), 3) << "a heading has no tick";
}

TEST_F(AppLeftoversModelTest, SelectTicksAndNeverUnticks)
{
    model.show(addSignalDeck());
    model.select(1);
    model.select(4);
    EXPECT_THAT(chosen(), ElementsAre(support, caches, named));
    model.toggle(1);
    model.selectAll();
    EXPECT_THAT(chosen(), ElementsAre(support, caches, named));
}

TEST_F(AppLeftoversModelTest, TicksStayThroughARefreshWithWhatIsStillThere)
{
    InstalledApp app = addSignalDeck();
    model.show(app);
    model.toggle(2);
    model.toggle(4);
    app.leftovers[0].size = 5'000'000'000;
    model.update(app);
    EXPECT_THAT(chosen(), ElementsAre(support, named));
    EXPECT_EQ(text(1, Model::SizeTextRole), QStringLiteral("5 GB"));
    app.leftovers.erase(app.leftovers.begin());
    model.update(app);
    EXPECT_THAT(chosen(), ElementsAre(named));
}

TEST_F(AppLeftoversModelTest, WhatARefreshBringsIsNotTicked)
{
    InstalledApp app = addSignalDeck();
    model.show(app);
    app.leftovers.push_back(leftover("Caches/com.signaldeck.desktop.helper", 1, Leftover::Match::exact));
    model.update(app);
    EXPECT_THAT(chosen(), ElementsAre(support, caches));
}

TEST_F(AppLeftoversModelTest, WhatTurnsOutToShareTheNameOnlyLosesItsTick)
{
    InstalledApp app = addSignalDeck();
    model.show(app);
    app.leftovers[0].match = Leftover::Match::name;
    model.update(app);
    EXPECT_THAT(chosen(), ElementsAre(caches));
}

TEST_F(AppLeftoversModelTest, AnotherAppResetsTheTicks)
{
    const InstalledApp deck = addSignalDeck();
    model.show(deck);
    model.toggle(1);
    model.show(addApp("Kite", 5));
    EXPECT_THAT(chosen(), IsEmpty());
    model.show(deck);
    EXPECT_THAT(chosen(), ElementsAre(support, caches));
    model.clear();
    EXPECT_THAT(chosen(), IsEmpty());
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(AppLeftoversModelTest, TheFirstAndLastItemsHaveTheCornersOfTheirBox)
{
    model.show(addSignalDeck());
    const auto is = [&](int row, int role) { return model.data(model.index(row), role).toBool(); };
    EXPECT_TRUE(is(1, Model::StartsBoxRole));
    EXPECT_FALSE(is(1, Model::EndsBoxRole));
    EXPECT_FALSE(is(2, Model::StartsBoxRole));
    EXPECT_TRUE(is(2, Model::EndsBoxRole));
    EXPECT_TRUE(is(4, Model::StartsBoxRole));
    EXPECT_TRUE(is(4, Model::EndsBoxRole));
}

TEST_F(AppLeftoversModelTest, AnItemIsRevealed)
{
    model.show(addSignalDeck());
    model.reveal(2);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/" + caches)));
    model.reveal(0);
    ASSERT_TRUE(model.prepareMenu(1));
    EXPECT_FALSE(model.prepareMenu(0));
    model.menuTarget()->reveal();
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/" + support)));
}

TEST_F(AppLeftoversModelTest, ANameThatIsNoTextIsShown)
{
    InstalledApp &app = addApp("Kite", 5);
    app.leftovers = {leftover("Caches/com.kite.app.\xff", 7, Leftover::Match::exact)};
    model.show(app);
    EXPECT_EQ(text(1), QStringLiteral("com.kite.app.\uFFFD"));
}

} // namespace
} // namespace corvane
