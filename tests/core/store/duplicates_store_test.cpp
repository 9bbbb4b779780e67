#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "core/store/store_over_a_home.h"

namespace corvane {
namespace {

using Phase = StorageStore::Phase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// A store over a home with three copies of one film and two of one song, after a search.
class DuplicatesStoreTest : public testing::Test, protected StoreOverAHome {
protected:
    DuplicatesStoreTest()
    {
        add("Films/film.mov", "film", 3'000'000, 3'000);
        add("Films/film copy.mov", "film", 3'000'000, 2'000);
        add("Archive/film.mov", "film", 3'000'000, 1'000);
        add("Songs/song.wav", "song", 2'000'000, 1'000);
        add("Archive/song.wav", "song", 2'000'000, 2'000);
        add("Films/other.mov", "other", 3'000'000, 1'000);
        store.scanHome();
        EXPECT_TRUE(waitForReady());
    }

    void add(const std::string &relative, const std::string &content, std::int64_t size, std::int64_t modified)
    {
        fake.files.addText(at(relative), content, size, Time(std::chrono::seconds(modified)));
    }

    void search()
    {
        store.findDuplicates();
        ASSERT_TRUE(waitForSearch());
    }
    bool waitForSearch()
    {
        return QTest::qWaitFor([&] { return store.duplicatePhase() != Phase::scanning; }, patience);
    }

    void remove(const Selection &entries, bool permanently = false)
    {
        store.remove(entries, permanently);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    }

    std::vector<std::vector<std::string>> groups() const
    {
        std::vector<std::vector<std::string>> names;
        for (const DuplicateGroup &group : store.duplicateGroups()) {
            names.emplace_back();
            for (const auto &file : group.files)
                names.back().push_back(file->path().substr(home.size() + 1));
        }
        return names;
    }
    std::vector<std::string> selected() const
    {
        std::vector<std::string> paths;
        for (const auto &[path, size] : store.selection())
            paths.push_back(path.substr(home.size() + 1));
        return paths;
    }
};

TEST_F(DuplicatesStoreTest, AreNotSearchedUnasked)
{
    EXPECT_EQ(store.duplicatePhase(), Phase::idle);
    EXPECT_THAT(store.duplicateGroups(), IsEmpty());
    EXPECT_EQ(store.duplicateWaste(), 0);
}

TEST_F(DuplicatesStoreTest, AreThereWhenThePhaseTurnsReady)
{
    std::vector<std::size_t> groupsWhenReady;
    QObject::connect(&store, &StorageStore::duplicatesChanged, &store, [&] {
        if (store.duplicatePhase() == Phase::ready)
            groupsWhenReady.push_back(store.duplicateGroups().size());
    });
    search();
    EXPECT_THAT(groupsWhenReady, ElementsAre(2U));
    EXPECT_THAT(groups(), ElementsAre(ElementsAre("Films/film.mov", "Films/film copy.mov", "Archive/film.mov"),
                                      ElementsAre("Archive/song.wav", "Songs/song.wav")));
    EXPECT_EQ(store.duplicateWaste(), 8'000'000);
}

TEST_F(DuplicatesStoreTest, AreSearchedOnceHoweverOftenTheButtonIsPressed)
{
    Gate gate(*fake.log, "openFile " + at("Films/film.mov"));
    store.findDuplicates();
    ASSERT_TRUE(gate.waitUntilReached());
    QSignalSpy changes(&store, &StorageStore::duplicatesChanged);
    store.findDuplicates();
    EXPECT_EQ(changes.count(), 0);
    gate.open();
    ASSERT_TRUE(waitForSearch());
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(DuplicatesStoreTest, ThePreviousGroupsStayDuringAnotherSearch)
{
    search();
    Gate gate(*fake.log, "openFile " + at("Films/film.mov"));
    store.findDuplicates();
    ASSERT_TRUE(gate.waitUntilReached());
    EXPECT_EQ(store.duplicatePhase(), Phase::scanning);
    EXPECT_EQ(store.duplicateProgress(), 0);
    EXPECT_EQ(groups().size(), 2U);
    gate.open();
    ASSERT_TRUE(waitForSearch());
    EXPECT_EQ(groups().size(), 2U);
}

TEST_F(DuplicatesStoreTest, ProgressIsPublished)
{
    std::vector<double> fractions;
    QObject::connect(&store, &StorageStore::duplicateProgressChanged, &store,
                     [&] { fractions.push_back(store.duplicateProgress()); });
    search();
    ASSERT_GE(fractions.size(), 3U);
    EXPECT_EQ(fractions.front(), 0);
    EXPECT_TRUE(std::ranges::is_sorted(fractions));
    EXPECT_LE(fractions.back(), 1);
}

TEST_F(DuplicatesStoreTest, AreClearedByANewScanAndAResultOfTheOldOneIsDropped)
{
    search();
    Gate gate(*fake.log, "openFile " + at("Films/film.mov"));
    store.findDuplicates();
    ASSERT_TRUE(gate.waitUntilReached());
    store.scanHome();
    EXPECT_EQ(store.duplicatePhase(), Phase::idle);
    EXPECT_THAT(store.duplicateGroups(), IsEmpty());
    gate.open();
    ASSERT_TRUE(waitForReady());
    QTest::qWait(50);
    EXPECT_EQ(store.duplicatePhase(), Phase::idle);
    EXPECT_THAT(store.duplicateGroups(), IsEmpty());
    EXPECT_EQ(store.duplicateProgress(), 0);
}

TEST_F(DuplicatesStoreTest, KeepingTheNewestSelectsAllOthersAndDeselectsNothing)
{
    search();
    store.setSelected(at("Films/other.mov"), 3'000'000, true);
    store.autoSelectDuplicates(true);
    EXPECT_THAT(selected(),
                ElementsAre("Archive/film.mov", "Films/film copy.mov", "Films/other.mov", "Songs/song.wav"));
    store.autoSelectDuplicates(false);
    EXPECT_EQ(selected().size(), 6U) << "what was selected stays so";
}

TEST_F(DuplicatesStoreTest, KeepingTheOldestSelectsAllOthers)
{
    search();
    store.autoSelectDuplicates(false);
    EXPECT_THAT(selected(), ElementsAre("Archive/song.wav", "Films/film copy.mov", "Films/film.mov"));
}

TEST_F(DuplicatesStoreTest, ARemovedFileLeavesItsGroupAndAGroupOfOneGoes)
{
    search();
    remove({{at("Films/film copy.mov"), 3'000'000}, {at("Songs"), 2'000'000}});
    EXPECT_THAT(groups(), ElementsAre(ElementsAre("Films/film.mov", "Archive/film.mov")));
    EXPECT_EQ(store.duplicateWaste(), 3'000'000);
    EXPECT_EQ(store.duplicatePhase(), Phase::ready);
}

TEST_F(DuplicatesStoreTest, AFileThatWasRemovedDuringTheSearchIsInNoGroup)
{
    Gate gate(*fake.log, "openFile " + at("Archive/song.wav"));
    store.findDuplicates();
    ASSERT_TRUE(gate.waitUntilReached());
    remove({{at("Films/film copy.mov"), 3'000'000}});
    gate.open();
    ASSERT_TRUE(waitForSearch());
    EXPECT_EQ(groups().front(), (std::vector<std::string>{"Films/film.mov", "Archive/film.mov"}));
}

TEST_F(DuplicatesStoreTest, NothingOfAGroupIsTouchedWhereItsKeptCopyHasChanged)
{
    search();
    store.autoSelectDuplicates(true);
    fake.files.take(at("Films/film.mov"));
    add("Films/film.mov", "another film", 3'000'000, 3'000);
    remove(store.effectiveSelection());
    EXPECT_TRUE(fake.files.has(at("Archive/film.mov")));
    EXPECT_TRUE(fake.files.has(at("Films/film copy.mov")));
    EXPECT_FALSE(fake.files.has(at("Songs/song.wav"))) << "the other group";
    EXPECT_THAT(store.toast().value(), HasSubstr("2 couldn't be removed (film.mov: the kept copy has changed)"));
}

TEST_F(DuplicatesStoreTest, ACopyOfWhatWasSelectedByRuleSurvivesWhateverElseIsSelected)
{
    search();
    store.autoSelectDuplicates(true);
    for (const char *folder : {"Films", "Archive", "Songs"})
        store.setSelected(at(folder), 1, true);
    remove(store.effectiveSelection());
    EXPECT_TRUE(fake.files.has(at("Films/film.mov")));
    EXPECT_TRUE(fake.files.has(at("Archive/song.wav")));
    EXPECT_FALSE(fake.files.has(at("Songs/song.wav")));
}

TEST_F(DuplicatesStoreTest, WhatARuleKeepsIsKeptAfterAnotherSearch)
{
    search();
    store.autoSelectDuplicates(true);
    search();
    store.setSelected(at("Films/film.mov"), 3'000'000, true);
    remove(store.effectiveSelection());
    EXPECT_TRUE(fake.files.has(at("Films/film.mov")));
    EXPECT_FALSE(fake.files.has(at("Archive/film.mov")));
    EXPECT_FALSE(fake.files.has(at("Films/film copy.mov")));
}

TEST_F(DuplicatesStoreTest, AGroupThatIsNoneAnyMoreAfterARescanStillGuardsWhatTheRuleSelected)
{
    search();
    store.autoSelectDuplicates(true);
    fake.files.take(at("Films/film.mov"));
    fake.files.take(at("Films/film copy.mov"));
    store.scanHome();
    ASSERT_TRUE(waitForReady());
    search();
    remove({{at("Archive/film.mov"), 3'000'000}});
    EXPECT_TRUE(fake.files.has(at("Archive/film.mov"))) << "the last one of its kind";
    EXPECT_THAT(store.toast().value(), HasSubstr("film.mov: the kept copy has changed"));
}

TEST_F(DuplicatesStoreTest, AFolderWithACopyThatARuleSelectedNeedsTheOneThatItKeeps)
{
    search();
    store.autoSelectDuplicates(true);
    store.setSelected(at("Archive"), 5'000'000, true);
    fake.files.take(at("Films/film.mov"));
    fake.files.take(at("Films/film copy.mov"));
    remove(store.effectiveSelection());
    EXPECT_TRUE(fake.files.has(at("Archive/film.mov")));
}

TEST_F(DuplicatesStoreTest, ACopyThatWasWrittenSinceTheSearchStays)
{
    search();
    store.autoSelectDuplicates(false);
    fake.files.take(at("Films/film.mov"));
    add("Films/film.mov", "newer work", 3'000'000, 9'000);
    remove(store.effectiveSelection());
    EXPECT_TRUE(fake.files.has(at("Films/film.mov")));
    EXPECT_FALSE(fake.files.has(at("Films/film copy.mov")));
}

TEST_F(DuplicatesStoreTest, OnceTheCopiesAreDeselectedAFolderWithAllOfThemMayGo)
{
    search();
    store.autoSelectDuplicates(true);
    store.clearSelection();
    for (const char *folder : {"Films", "Archive"})
        store.setSelected(at(folder), 1, true);
    remove(store.effectiveSelection());
    EXPECT_FALSE(fake.files.has(at("Films")));
    EXPECT_FALSE(fake.files.has(at("Archive")));
}

} // namespace
} // namespace corvane
