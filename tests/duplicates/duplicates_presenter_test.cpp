#include "duplicates/ui/duplicates_presenter.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "duplicates/duplicates_ui_fixture.h"

namespace corvane {
namespace {

using Content = DuplicatesPresenter::Content;

class DuplicatesPresenterTest : public test::DuplicatesFixture {
protected:
    DuplicatesPresenter presenter{store};
};

TEST_F(DuplicatesPresenterTest, BeforeASearchItSaysWhatDuplicatesAre)
{
    addFilmAndSong();
    scanHome();
    EXPECT_EQ(presenter.content(), Content::introduction);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Identical files that exist in more than one place"));
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Find Duplicates"));
    EXPECT_TRUE(presenter.canSearch());
    EXPECT_FALSE(presenter.canAutoSelect());
}

TEST_F(DuplicatesPresenterTest, DuringASearchItSaysHowFarItIsAndStartsNoOther)
{
    addFilmAndSong();
    scanHome();
    Gate reading(*fake.log, "openFile " + at("Songs/song.wav"));
    presenter.search();
    ASSERT_TRUE(reading.waitUntilReached());
    EXPECT_EQ(presenter.content(), Content::search);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("Fingerprinting files…"));
    EXPECT_EQ(presenter.progressText(), QStringLiteral("Fingerprinting files… 0 percent"));
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Find Duplicates"));
    EXPECT_FALSE(presenter.canSearch());
    EXPECT_FALSE(presenter.canAutoSelect());
    reading.open();
    waitForSearch();
}

TEST_F(DuplicatesPresenterTest, TheProgressIsAWholePercentage)
{
    addFilmAndSong();
    scanHome();
    QStringList texts;
    QObject::connect(&presenter, &DuplicatesPresenter::progressChanged, &presenter,
                     [&] { texts << presenter.progressText(); });
    search();
    ASSERT_GE(texts.size(), 3);
    EXPECT_EQ(texts.first(), QStringLiteral("Fingerprinting files… 0 percent"));
    EXPECT_EQ(texts.last(), QStringLiteral("Fingerprinting files… 100 percent")) << "every file has a copy";
}

TEST_F(DuplicatesPresenterTest, SeveralGroupsAreCountedInThePlural)
{
    addFilmAndSong();
    scanAndSearch();
    EXPECT_EQ(presenter.content(), Content::groups);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("2 groups · 8 MB wasted"));
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Search Again"));
    EXPECT_TRUE(presenter.canSearch());
    EXPECT_TRUE(presenter.canAutoSelect());
}

TEST_F(DuplicatesPresenterTest, OneGroupIsCountedInTheSingular)
{
    addFilmAndSong();
    scanAndSearch();
    removeItem("Archive/song.wav", 2'000'000);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("1 group · 6 MB wasted"));
}

TEST_F(DuplicatesPresenterTest, WithoutDuplicatesNoneAreFoundAndNoneCanBeSelected)
{
    add("Films/film.mov", "film", 3'000'000, 30);
    scanAndSearch();
    EXPECT_EQ(presenter.content(), Content::nothing);
    EXPECT_EQ(presenter.subtitle(), QStringLiteral("0 groups · Zero KB wasted"));
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Search Again"));
    EXPECT_FALSE(presenter.canAutoSelect());
}

TEST_F(DuplicatesPresenterTest, AnotherSearchIsCalledSoWhileItRuns)
{
    addFilmAndSong();
    scanAndSearch();
    Gate reading(*fake.log, "openFile " + at("Songs/song.wav"));
    presenter.search();
    ASSERT_TRUE(reading.waitUntilReached());
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Search Again"));
    DuplicatesPresenter late(store);
    EXPECT_EQ(late.searchText(), QStringLiteral("Search Again"));
    reading.open();
    waitForSearch();
}

TEST_F(DuplicatesPresenterTest, AScanMakesTheNextSearchAFirstOneAgain)
{
    addFilmAndSong();
    scanAndSearch();
    scanHome();
    EXPECT_EQ(presenter.content(), Content::introduction);
    EXPECT_EQ(presenter.searchText(), QStringLiteral("Find Duplicates"));
}

TEST_F(DuplicatesPresenterTest, TheEndOfASearchIsAnnouncedBeforeAndAfterWhatItFound)
{
    addFilmAndSong();
    scanHome();
    std::vector<std::string> order;
    QObject::connect(&presenter, &DuplicatesPresenter::searchEnds, &presenter, [&] { order.emplace_back("ends"); });
    QObject::connect(&presenter, &DuplicatesPresenter::changed, &presenter, [&] { order.emplace_back("changed"); });
    QObject::connect(&presenter, &DuplicatesPresenter::searchEnded, &presenter, [&] { order.emplace_back("ended"); });
    search();
    EXPECT_EQ(order, (std::vector<std::string>{"changed", "ends", "changed", "ended"}));
}

TEST_F(DuplicatesPresenterTest, KeepingTheNewestSelectsEveryOtherCopy)
{
    addFilmAndSong();
    scanAndSearch();
    presenter.keepNewest();
    EXPECT_EQ(store.selection().size(), 3U);
    EXPECT_FALSE(isSelected("Films/film.mov"));
    EXPECT_FALSE(isSelected("Songs/song.wav"));
}

TEST_F(DuplicatesPresenterTest, KeepingTheOldestSelectsEveryOtherCopy)
{
    addFilmAndSong();
    scanAndSearch();
    presenter.keepOldest();
    EXPECT_EQ(store.selection().size(), 3U);
    EXPECT_FALSE(isSelected("Archive/film.mov"));
    EXPECT_FALSE(isSelected("Archive/song.wav"));
}

} // namespace
} // namespace corvane
