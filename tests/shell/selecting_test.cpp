#include "shell/ui/selecting.h"

#include <gtest/gtest.h>

#include "cleanup/cleanup_fixture.h"
#include "cleanup/cleanup_items.h"
#include "support/patience.h"

namespace corvane {
namespace {

const CheckFacts off{Qt::Unchecked, true, {}};
const CheckFacts mixed{Qt::PartiallyChecked, true, {}};
const CheckFacts on{Qt::Checked, true, {}};
const CheckFacts covered{Qt::Checked, false, QStringLiteral("Inside a selected folder")};
const CheckFacts refused{Qt::Unchecked, false, QStringLiteral("Protected location")};

CheckFacts checkFactsOf(const StorageStore &store, const std::string &path)
{
    return checkFacts(selectionFactsOf(store, path));
}
CheckFacts checkFactsOf(const StorageStore &store, const CleanupItem &item)
{
    return checkFacts(selectionFactsOfAll(store.selection(), item.entries, protectionTest(store)));
}
void toggle(StorageStore &store, const CleanupItem &item)
{
    toggleEntries(store, QStringLiteral("Location"), allEntries({&item, 1}));
}

class SelectingTest : public test::CleanupFixture {
protected:
    SelectingTest()
    {
        addFile(".npm/_cacache/a/deep", 3'000);
        addFile(".npm/_cacache/b", 2'000);
    }
    CheckFacts npm() { return checkFactsOf(store, item("npm")); }
};

TEST_F(SelectingTest, ALocationIsOnOffOrMixedAfterItsEntries)
{
    measure();
    EXPECT_EQ(npm(), off);
    select(".npm/_cacache/a");
    EXPECT_EQ(npm(), mixed);
    select(".npm/_cacache/b");
    EXPECT_EQ(npm(), on);
}

TEST_F(SelectingTest, ALocationIsMixedWhenSomethingInsideAnEntryIsSelected)
{
    measure();
    select(".npm/_cacache/a/deep");
    EXPECT_EQ(npm(), mixed);
}

TEST_F(SelectingTest, ALocationWhoseFolderIsSelectedGoesWithIt)
{
    measure();
    select(".npm/_cacache");
    EXPECT_EQ(npm(), covered);
    EXPECT_EQ(checkFactsOf(store, at(".npm/_cacache/a")), covered);
}

TEST_F(SelectingTest, WithoutEntriesThereIsNothingToCheck)
{
    measure();
    EXPECT_EQ(checkFactsOf(store, item("logs")), CheckFacts());
}

TEST_F(SelectingTest, TogglingSelectsEveryEntryAndTakesThemAllOutAgain)
{
    measure();
    select(".npm/_cacache/a");
    toggle(store, item("npm"));
    EXPECT_EQ(npm(), on) << "mixed becomes on";
    EXPECT_EQ(store.selection().size(), 2u);
    toggle(store, item("npm"));
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(SelectingTest, WhatMayNotBeSelectedStaysOutAndDoesNotKeepTheLocationMixed)
{
    fake.files.addFile("/srv/files/mine", 4'000);
    fake.files.addFile("/srv/files/Library/Keychains", 4'000);
    const ProtectedLocations strict{home, ProtectedPlaces{.exact = {"/srv/files/Library"},
                                                          .prefixes = {},
                                                          .homeExact = {},
                                                          .homePrefixes = {},
                                                          .trashFolders = {},
                                                          .trashParts = {}}};
    fake.files.addFolder(at("Library"));
    fake.files.addLink(at("Library/Logs"), "/srv/files");
    StorageStore guarded(host(), strict);
    guarded.refreshCleanup();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !guarded.cleanupLoading(); }, patience));
    const CleanupItem logs =
        *std::ranges::find_if(guarded.cleanupItems(), [](const CleanupItem &each) { return each.def->id == "logs"; });
    ASSERT_EQ(logs.entries.size(), 2u);

    EXPECT_EQ(checkFactsOf(guarded, logs), off);
    toggle(guarded, logs);
    EXPECT_EQ(checkFactsOf(guarded, logs), on);
    EXPECT_EQ(guarded.selection().size(), 1u);
    EXPECT_EQ(checkFactsOf(guarded, at("Library/Logs/Library")), refused);
    toggle(guarded, logs);
    EXPECT_TRUE(guarded.selection().empty());
}

TEST_F(SelectingTest, ALocationOfNothingButProtectedItemsCannotBeChecked)
{
    const ProtectedLocations strict{home, ProtectedPlaces{.exact = {},
                                                          .prefixes = {at(".npm/_cacache/a"), at(".npm/_cacache/b")},
                                                          .homeExact = {},
                                                          .homePrefixes = {},
                                                          .trashFolders = {},
                                                          .trashParts = {}}};
    StorageStore guarded(host(), strict);
    guarded.refreshCleanup();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !guarded.cleanupLoading(); }, patience));
    const CleanupItem npm =
        *std::ranges::find_if(guarded.cleanupItems(), [](const CleanupItem &each) { return each.def->id == "npm"; });
    ASSERT_EQ(npm.entries.size(), 2u);
    EXPECT_EQ(checkFactsOf(guarded, npm), refused);
    toggle(guarded, npm);
    EXPECT_TRUE(guarded.selection().empty());
}

TEST_F(SelectingTest, OneItemIsOffOnOrMixed)
{
    EXPECT_EQ(checkFactsOf(store, at("Downloads/a")), off);
    select("Downloads/a/inside");
    EXPECT_EQ(checkFactsOf(store, at("Downloads/a")), mixed);
    select("Downloads/a");
    EXPECT_EQ(checkFactsOf(store, at("Downloads/a")), on);
    EXPECT_EQ(checkFactsOf(store, at("Downloads/ab")), off) << "a name that only begins like it";
    EXPECT_EQ(checkFactsOf(store, at("Library")), refused);
}

} // namespace
} // namespace corvane
