#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "core/store/store_over_a_home.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Time someDay{std::chrono::seconds{1'700'000'000}};

/// A store over a fake disk with two applications, the leftovers of one of them, and those of a deleted one.
class AppsStoreTest : public testing::Test, protected StoreOverAHome {
protected:
    AppsStoreTest() : StoreOverAHome(SystemKind::mac, {.now = [] { return someDay; }, .quitDelay = 1ms})
    {
        addInfo(deck, "com.deck.app");
        addInfo(mill, "net.mill.layout");
        fake.files.addFile(deck + "/Contents/MacOS/Deck", 5'000'000);
        fake.files.addFile(deck + "/Contents/Frameworks/Kit", 2'000'000);
        fake.files.addFile(mill + "/Contents/MacOS/Mill", 6'000'000);
        addFile("Library/Caches/com.deck.app/entry", 3'000'000);
        addFile("Library/Preferences/com.deck.app.plist", 4'096);
        addFile("Library/Caches/org.gone.tool/old", 1'000'000);
        addFile("Library/Logs/org.gone.tool/log", 500'000);
        addFile("Movies/a.mov", 3'000'000);
    }

    void addInfo(const std::string &bundle, const std::string &identifier)
    {
        fake.files.addText(bundle + "/Contents/Info.plist",
                           "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier +
                               "</string></dict></plist>",
                           0);
    }

    void load()
    {
        store.refreshApps();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !store.appsLoading(); }, patience));
        loaded = store.apps();
        ASSERT_EQ(loaded.size(), 2u);
    }
    /// An application as of when the inventory was loaded.
    const InstalledApp &app(const std::string &name) const
    {
        return *std::ranges::find(loaded, name, &InstalledApp::name);
    }
    /// Uninstalls it with all its leftovers.
    void uninstall(const InstalledApp &app) { store.uninstall(app, app.leftovers); }
    void waitForRemoval()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return isIdle(); }, patience));
    }
    bool isIdle() const { return !store.isRemoving() && !store.isUninstalling(deck) && !store.isUninstalling(mill); }

    std::vector<std::string> requests() const { return fake.log->linesStartingWith("requestQuit "); }
    std::vector<std::string> moves() const { return fake.log->linesStartingWith("trashItem "); }

    std::vector<InstalledApp> loaded;
    const std::string deck = "/Applications/Deck.app";
    const std::string mill = "/Applications/Mill.app";
};

// --- The inventory

TEST_F(AppsStoreTest, NothingIsLoadedUntilAsked)
{
    EXPECT_THAT(store.apps(), IsEmpty());
    EXPECT_FALSE(store.appsLoading());
    EXPECT_FALSE(store.appsLoaded());
}

TEST_F(AppsStoreTest, AnInventoryPublishesTheApplicationsAndTheOrphans)
{
    load();
    EXPECT_TRUE(store.appsLoaded());
    EXPECT_EQ(store.apps().front().name, "Deck");
    EXPECT_EQ(store.apps().front().leftovers.size(), 2u);
    ASSERT_EQ(store.orphanGroups().size(), 1u);
    EXPECT_EQ(store.orphanGroups().front().id, "org.gone.tool");
    EXPECT_EQ(store.orphanTotal(), 1'500'000);
}

TEST_F(AppsStoreTest, TheAgeOfAnOrphanIsThatOfTheStoresClock)
{
    for (const auto age : {std::chrono::days(29), std::chrono::days(31)}) {
        const std::string name = "Library/Caches/org.lost.tool" + std::to_string(age.count());
        fake.files.addFolder(at(name), someDay - age);
    }
    load();
    ASSERT_EQ(store.orphanGroups().size(), 2u);
    EXPECT_EQ(store.orphanGroups().back().id, "org.lost.tool31");
}

TEST_F(AppsStoreTest, TwoRefreshesInARowPublishOnce)
{
    int published = 0;
    QObject::connect(&store, &StorageStore::appsChanged, [&] { published += store.appsLoading() ? 0 : 1; });
    store.refreshApps();
    const int token = store.appsToken();
    store.refreshApps();
    EXPECT_GT(store.appsToken(), token);
    EXPECT_TRUE(store.appsLoading());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.appsLoading(); }, patience));
    QTest::qWait(50); // time for an erroneous second result
    EXPECT_EQ(published, 1);
}

TEST_F(AppsStoreTest, ASupersededInventoryThatArrivesAfterTheNewRequestIsDropped)
{
    AppInventory::Result stale;
    stale.apps.resize(7);
    store.refreshApps();
    const int oldToken = store.appsToken();
    store.refreshApps();
    store.setApps(stale, oldToken);
    EXPECT_TRUE(store.appsLoading());
    EXPECT_FALSE(store.appsLoaded());
    EXPECT_THAT(store.apps(), IsEmpty());

    ASSERT_TRUE(QTest::qWaitFor([&] { return store.appsLoaded(); }, patience));
    store.setApps(stale, oldToken);
    EXPECT_EQ(store.apps().size(), 2u);
}

TEST_F(AppsStoreTest, SelectedOrphansTakeTheFiguresOfANewInventory)
{
    load();
    store.setSelected(at("Library/Caches/org.gone.tool"), 1'000'000, true);
    fake.files.addFile(at("Library/Caches/org.gone.tool/new"), 200'000);
    load();
    EXPECT_EQ(store.selectedTotal(), 1'200'000);
    EXPECT_EQ(store.orphanTotal(), 1'700'000);
}

TEST_F(AppsStoreTest, WhatIsRemovedLeavesTheListsAtOnceAndTheInventoryIsLoadedAgain)
{
    load();
    const int token = store.appsToken();
    store.didRemove({{{at("Library/Caches/com.deck.app"), 3'000'000}, {at("Library/Logs/org.gone.tool"), 500'000}}, {}},
                    false);
    EXPECT_EQ(store.apps().front().leftovers.size(), 1u);
    EXPECT_EQ(store.orphanTotal(), 1'000'000);
    EXPECT_TRUE(store.appsLoading());
    EXPECT_GT(store.appsToken(), token);
}

TEST_F(AppsStoreTest, ARemovalElsewhereLoadsNothingAgain)
{
    load();
    const int token = store.appsToken();
    store.didRemove({{{at("Library/Caches/com.deck"), 1}}, {}}, false);
    EXPECT_EQ(store.apps(), loaded);
    EXPECT_EQ(store.appsToken(), token);
}

TEST_F(AppsStoreTest, ARemovalBeforeTheFirstInventoryLoadsNone)
{
    store.didRemove({{{deck, 7'000'000}}, {}}, false);
    EXPECT_FALSE(store.appsLoading());
}

TEST_F(AppsStoreTest, ARemovalDuringAnInventoryRestartsIt)
{
    store.refreshApps();
    const int token = store.appsToken();
    store.didRemove({{{at("Downloads/film.mov"), 1}}, {}}, false);
    EXPECT_GT(store.appsToken(), token);
    AppInventory::Result stale;
    stale.apps.resize(7);
    store.setApps(stale, token);
    EXPECT_THAT(store.apps(), IsEmpty()) << "it may have seen what is gone";
}

// --- Uninstalling

TEST_F(AppsStoreTest, AnApplicationThatDoesNotRunIsRemovedAtOnceWithItsLeftovers)
{
    load();
    EXPECT_FALSE(store.isRunning(app("Deck")));
    uninstall(app("Deck"));
    EXPECT_TRUE(store.isRemoving());
    EXPECT_TRUE(store.isUninstalling(deck));
    waitForRemoval();
    EXPECT_THAT(requests(), IsEmpty());
    EXPECT_THAT(moves(), ElementsAre("trashItem " + deck, "trashItem " + at("Library/Caches/com.deck.app"),
                                     "trashItem " + at("Library/Preferences/com.deck.app.plist")));
    EXPECT_EQ(*store.toast(), "Moved 3 items (10 MB) to Trash — empty it to free the space");
}

TEST_F(AppsStoreTest, WithoutLeftoversTheApplicationAloneIsRemoved)
{
    load();
    store.uninstall(app("Deck"), {});
    waitForRemoval();
    EXPECT_THAT(moves(), ElementsAre("trashItem " + deck));
    EXPECT_EQ(*store.toast(), "Moved 1 item (7 MB) to Trash — empty it to free the space");
}

TEST_F(AppsStoreTest, AnUninstalledApplicationLeavesTheListAndTheInventoryIsLoadedAgain)
{
    load();
    const int token = store.appsToken();
    std::size_t left = 2;
    QObject::connect(&store, &StorageStore::isRemovingChanged, [&] { left = store.apps().size(); });
    uninstall(app("Deck"));
    waitForRemoval();
    EXPECT_EQ(left, 1u);
    EXPECT_EQ(store.apps().front().name, "Mill");
    EXPECT_GT(store.appsToken(), token);
}

TEST_F(AppsStoreTest, AnUninstallThatFailsLoadsTheInventoryAgainToo)
{
    load();
    const int token = store.appsToken();
    for (const auto operation : {FakeTrash::Operation::trashItem, FakeTrash::Operation::recycle})
        fake.trash.fail(operation, deck, "the disk is full");
    store.uninstall(app("Deck"), {});
    waitForRemoval();
    EXPECT_EQ(store.apps().size(), 2u);
    EXPECT_GT(store.appsToken(), token);
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(AppsStoreTest, EveryInstanceIsAskedToQuitAndOneRemovalFollows)
{
    load();
    fake.applications.setRunning(deck, {11, 12});
    fake.applications.setQuits(true);
    EXPECT_TRUE(store.isRunning(app("Deck")));
    const QSignalSpy removing(&store, &StorageStore::isRemovingChanged);
    uninstall(app("Deck"));
    EXPECT_THAT(requests(), ElementsAre("requestQuit " + deck + " 11", "requestQuit " + deck + " 12"));
    EXPECT_FALSE(store.isRemoving()) << "not before they have had their time";
    EXPECT_TRUE(store.isUninstalling(deck));
    EXPECT_THAT(moves(), IsEmpty());
    waitForRemoval();
    EXPECT_EQ(moves().size(), 3u);
    EXPECT_EQ(removing.count(), 2);
    EXPECT_EQ(requests().size(), 2u);
}

TEST_F(AppsStoreTest, AnInstanceThatDoesNotQuitIsNotWaitedForLonger)
{
    load();
    fake.applications.setRunning(deck, {11});
    uninstall(app("Deck"));
    waitForRemoval();
    EXPECT_TRUE(store.isRunning(app("Deck")));
    EXPECT_FALSE(fake.files.has(deck));
    EXPECT_EQ(requests().size(), 1u);
}

TEST_F(AppsStoreTest, AnApplicationHasTwoSecondsToQuit)
{
    EXPECT_EQ(StoreTiming().quitDelay, 2s);
}

TEST_F(AppsStoreTest, ALeftoverThatIsReplacedWhileTheApplicationQuitsIsRemoved)
{
    load();
    fake.applications.setRunning(deck, {11});
    uninstall(app("Deck"));
    // Preferences are saved by replacing the file with a new one.
    fake.files.take(at("Library/Preferences/com.deck.app.plist"));
    fake.files.addFile(at("Library/Preferences/com.deck.app.plist"), 4'096);
    waitForRemoval();
    EXPECT_FALSE(fake.files.has(at("Library/Preferences/com.deck.app.plist")));
    EXPECT_FALSE(fake.files.has(deck));
    EXPECT_FALSE(store.toastIsWarning());
}

TEST_F(AppsStoreTest, WhatHasTakenTheConfirmedOnesPlaceByTheRemovalStays)
{
    load();
    fake.applications.setRunning(deck, {11});
    uninstall(app("Deck"));
    // While it quits, another version is installed, and a folder replaces the preferences.
    fake.files.take(deck);
    fake.files.addFile(deck + "/Contents/MacOS/Deck", 8'000'000);
    fake.files.take(at("Library/Preferences/com.deck.app.plist"));
    fake.files.addFile(at("Library/Preferences/com.deck.app.plist/thesis"), 4'096);
    waitForRemoval();
    EXPECT_TRUE(fake.files.has(deck));
    EXPECT_TRUE(fake.files.has(at("Library/Preferences/com.deck.app.plist/thesis")));
    EXPECT_FALSE(fake.files.has(at("Library/Caches/com.deck.app")));
    EXPECT_EQ(*store.toast(), "Moved 1 item (3 MB) to Trash — empty it to free the space · 2 couldn't be removed "
                              "(Deck.app: it has changed since you selected it)");
}

TEST_F(AppsStoreTest, AFolderWhereTheListShowsAFileIsNotWhatWasConfirmed)
{
    load();
    const InstalledApp shown = app("Deck");
    fake.files.take(at("Library/Preferences/com.deck.app.plist"));
    fake.files.addFile(at("Library/Preferences/com.deck.app.plist/thesis"), 1'000);
    fake.files.take(at("Library/Caches/com.deck.app"));
    fake.files.addFile(at("Library/Caches/com.deck.app"), 1'000);
    uninstall(shown);
    waitForRemoval();
    EXPECT_TRUE(fake.files.has(at("Library/Preferences/com.deck.app.plist/thesis")));
    EXPECT_TRUE(fake.files.has(at("Library/Caches/com.deck.app")));
    EXPECT_FALSE(fake.files.has(deck));
}

TEST_F(AppsStoreTest, WhatIsProtectedIsRefused)
{
    load();
    InstalledApp rogue = app("Deck");
    rogue.path = at("Documents");
    fake.files.addFile(at("Documents/thesis"), 1'000);
    store.uninstall(rogue, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_TRUE(fake.files.has(at("Documents/thesis")));
    EXPECT_EQ(*store.toast(), "Nothing was removed · 1 couldn't be removed (Documents: protected location)");
}

TEST_F(AppsStoreTest, AnUninstallThatIsDueDuringAnotherRemovalFollowsIt)
{
    load();
    fake.applications.setRunning(mill, {21});
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    store.remove({{at("Movies/a.mov"), 3'000'000}}, false);
    ASSERT_TRUE(gate.waitUntilReached());
    store.uninstall(app("Deck"), {});
    store.uninstall(app("Mill"), {});
    QTest::qWait(50); // lets the second become due, too
    EXPECT_THAT(moves(), ElementsAre("trashItem " + at("Movies/a.mov")));
    EXPECT_TRUE(store.isUninstalling(deck));
    EXPECT_TRUE(store.isUninstalling(mill));
    gate.open();
    waitForRemoval();
    EXPECT_THAT(moves(), ElementsAre("trashItem " + at("Movies/a.mov"), "trashItem " + deck, "trashItem " + mill));
}

TEST_F(AppsStoreTest, ASecondUninstallDuringTheWaitIsCarriedOutToo)
{
    load();
    fake.applications.setRunning(deck, {11});
    fake.applications.setRunning(mill, {21});
    uninstall(app("Deck"));
    uninstall(app("Mill"));
    EXPECT_TRUE(store.isUninstalling(deck));
    EXPECT_TRUE(store.isUninstalling(mill));
    waitForRemoval();
    EXPECT_FALSE(fake.files.has(deck));
    EXPECT_FALSE(fake.files.has(mill));
    EXPECT_THAT(requests(), ElementsAre("requestQuit " + deck + " 11", "requestQuit " + mill + " 21"));
}

TEST_F(AppsStoreTest, AnApplicationOnItsWayOutIsNotUninstalledTwice)
{
    load();
    fake.applications.setRunning(deck, {11});
    const QSignalSpy changed(&store, &StorageStore::uninstallsChanged);
    uninstall(app("Deck"));
    uninstall(app("Deck"));
    waitForRemoval();
    EXPECT_EQ(requests().size(), 1u);
    EXPECT_EQ(moves().size(), 3u);
    EXPECT_EQ(changed.count(), 2);
    EXPECT_FALSE(store.toastIsWarning());
}

TEST_F(AppsStoreTest, AStoreThatGoesAwayDuringTheWaitRemovesNothing)
{
    load();
    fake.applications.setRunning(deck, {11});
    auto brief = std::make_unique<StorageStore>(fake.host(), locations, StoreTiming{.quitDelay = 20ms});
    brief->uninstall(app("Deck"), {});
    brief.reset();
    QTest::qWait(100);
    EXPECT_TRUE(fake.files.has(deck));
    EXPECT_THAT(moves(), IsEmpty());
}

TEST_F(AppsStoreTest, AnUninstallThatIsDueWhileTheStoreGoesAwayRemovesNothing)
{
    load();
    fake.applications.setRunning(deck, {11});
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    auto brief = std::make_unique<StorageStore>(fake.host(), locations, StoreTiming{.quitDelay = 10ms});
    brief->remove({{at("Movies/a.mov"), 1}}, false);
    ASSERT_TRUE(gate.waitUntilReached());
    brief->uninstall(app("Deck"), {});
    // Runs in the event loop while the store waits for the removal, after the uninstall's timeout.
    QTimer::singleShot(100, [&gate] { gate.open(); });
    brief.reset();
    EXPECT_FALSE(fake.files.has(at("Movies/a.mov")));
    EXPECT_TRUE(fake.files.has(deck));
}

} // namespace
} // namespace corvane
