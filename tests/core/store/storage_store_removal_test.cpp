#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>

#include "core/detached_call.h"
#include "core/store/store_fixture.h"

namespace corvane {
namespace {

TEST_F(StorageStoreTest, RemovalTakesTheItemOutOfTheTreeAndOfEveryTotal)
{
    scanHome();
    const auto total = store.root()->size;
    const auto movie = sizeOf("Movies/a.mov");
    store.setSelected(at("Movies/a.mov"), movie, true);
    store.remove(store.effectiveSelection(), false);
    EXPECT_TRUE(store.isRemoving());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));

    EXPECT_EQ(store.root()->size, total - movie);
    EXPECT_EQ(store.root()->fileCount, 3);
    EXPECT_EQ(store.node(at("Movies/a.mov")), nullptr);
    EXPECT_EQ(store.allFiles().size(), 2u);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_TRUE(verify(*store.root()));
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Moved 1 item (3 MB) to Trash — empty it to free the space");
}

/// Quits while a folder is scanned that has replaced the one removed, on a disk that stops answering at a call.
class QuittingTest : public StorageStoreTest {
protected:
    void quitWhileTheDiskHangsAt(const std::string &call)
    {
        fake.files.addMount({.path = home, .fileSystem = 2, .mayNotAnswer = true});
        std::optional<StorageStore> quitting(std::in_place, fake.host(), locations);
        quitting->setSelected(at("Projects"), 4'005'000, true);
        fake.files.take(at("Projects"));
        fake.files.addFile(at("Projects/node_modules/another"), 1'000'000);
        Gate gate(*fake.log, call);
        quitting->remove(quitting->effectiveSelection(), false);
        ASSERT_TRUE(gate.waitUntilReached());

        std::atomic<bool> hasQuit = false;
        std::atomic<bool> hung = false;
        std::thread watch([&] {
            hung = !QTest::qWaitFor([&] { return hasQuit.load(); }, patience);
            if (hung)
                gate.open();
        });
        quitting.reset();
        hasQuit = true;
        watch.join();
        EXPECT_FALSE(hung);
        gate.open();
        EXPECT_TRUE(QTest::qWaitFor([] { return Companion::leftCalls() == 0; }, patience));
    }
};

TEST_F(QuittingTest, DoesNotWaitForAHungDiskToBeScannedAgain)
{
    quitWhileTheDiskHangsAt("list " + at("Projects"));
}

TEST_F(QuittingTest, DoesNotWaitForAHungDiskToIdentifyABuildFolder)
{
    quitWhileTheDiskHangsAt("exists " + at("Projects/package.json"));
}

TEST_F(StorageStoreTest, RemovingTheFolderShownGoesToTheFolderAroundIt)
{
    scanHome();
    store.open(store.root()->children.back());
    const std::string shown = store.currentFolder()->path();
    store.didRemove({{{shown, store.currentFolder()->size}}, {}}, false);
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_EQ(store.node(shown), nullptr);
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, WhatLayInsideARemovedFolderLeavesEveryList)
{
    scanHome();
    store.setSelected(at("Projects/deep/c.zip"), sizeOf("Projects/deep/c.zip"), true);
    store.didRemove({{{at("Projects"), sizeOf("Projects")}}, {}}, false);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(store.node(at("Projects/deep/c.zip")), nullptr);
    for (const auto &file : store.allFiles())
        EXPECT_FALSE(liesBeneath(file->path(), at("Projects")));
    EXPECT_EQ(store.typeBreakdown().size(), 1u);
}

TEST_F(StorageStoreTest, RemovingTheScannedFolderItselfEndsTheScan)
{
    store.scan(at("Movies"));
    ASSERT_TRUE(waitForReady());
    store.didRemove({{{at("Movies"), store.root()->size}}, {}}, false);
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    EXPECT_FALSE(store.hasScan());
}

TEST_F(StorageStoreTest, AFailureIsReportedOnceAndLogged)
{
    scanHome();
    store.didRemove({{}, {{at("Movies/a.mov"), "a.mov: Operation not permitted"}}}, false);
    EXPECT_EQ(*store.toast(), "Nothing was removed · 1 couldn't be removed (a.mov: Operation not permitted)");
    EXPECT_TRUE(store.toastIsWarning());
    ASSERT_EQ(fake.desktop.logged().size(), 1u);
    EXPECT_EQ(fake.desktop.logged().front(), "Corvane removal failures:\na.mov: Operation not permitted");
}

TEST_F(StorageStoreTest, AFolderThatIsDeletedInPartIsMeasuredAgain)
{
    fake.files.addFile(at("Projects/deep/keep/d.zip"), 1'500'000);
    scanHome();
    store.open(store.sharedNode(at("Projects/deep")));
    fake.files.failRemoval(at("Projects/deep/keep/d.zip"), std::errc::permission_denied);
    store.setSelected(at("Projects"), sizeOf("Projects"), true);
    store.setSelected(at("Projects/deep/c.zip"), 4'000'000, true);
    store.remove(store.effectiveSelection(), true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));

    EXPECT_EQ(*store.toast(), "Deleted 0 items · freed 4 MB · 1 couldn't be removed (Projects: deep/keep/d.zip: "
                              "Permission denied; the rest was deleted)");
    EXPECT_EQ(sizeOf("Projects"), 1'500'000);
    EXPECT_EQ(store.root()->size, 6'500'000);
    EXPECT_EQ(store.root()->fileCount, 3);
    EXPECT_TRUE(verify(*store.root()));
    EXPECT_EQ(store.node(at("Projects/deep/c.zip")), nullptr);
    EXPECT_EQ(store.allFiles().size(), 3u);
    EXPECT_EQ(store.currentFolder(), store.sharedNode(at("Projects/deep")));
    EXPECT_EQ(store.selection(), (Selection{{at("Projects"), 1'500'000}})) << "to be tried again";
}

TEST_F(StorageStoreTest, AScannedFolderThatIsDeletedInPartIsScannedAgain)
{
    store.scan(at("Projects"));
    ASSERT_TRUE(waitForReady());
    fake.files.failRemoval(at("Projects/deep/c.zip"), std::errc::permission_denied);
    store.remove({{at("Projects"), 4'005'000}}, true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->size, 4'000'000);
}

TEST_F(StorageStoreTest, AnItemThatIsGoneAlreadyLeavesTheSelectionAndTheTree)
{
    scanHome();
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    fake.files.take(at("Movies/a.mov"));
    store.remove(store.effectiveSelection(), false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_EQ(*store.toast(), "Nothing was removed · 1 couldn't be removed (a.mov: No such file or directory)");
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(store.node(at("Movies/a.mov")), nullptr);
    EXPECT_EQ(sizeOf("Movies"), 2'000'000);
    EXPECT_EQ(store.allFiles().size(), 2u);
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, AnItemThatReplacedTheSelectedOneStaysUntilItIsSelectedAgain)
{
    scanHome();
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    fake.files.take(at("Movies/a.mov"));
    fake.files.addFile(at("Movies/a.mov/one"), 1'000'000);
    store.setSelected(at("Movies/a.mov"), 3'000'000, true); // already selected
    store.remove(store.effectiveSelection(), false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_EQ(*store.toast(),
              "Nothing was removed · 1 couldn't be removed (a.mov: it has changed since you selected it)");
    EXPECT_TRUE(fake.files.has(at("Movies/a.mov/one")));
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(sizeOf("Movies/a.mov"), 1'000'000) << "the tree shows what is there now";
    EXPECT_TRUE(verify(*store.root()));

    store.setSelected(at("Movies/a.mov"), 1'000'000, true);
    store.remove(store.effectiveSelection(), false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_FALSE(fake.files.has(at("Movies/a.mov")));
}

TEST_F(StorageStoreTest, AnItemThatIsReplacedDuringItsRemovalIsNoLongerSelected)
{
    for (const bool permanently : {false, true}) {
        scanHome();
        store.setSelected(at("Movies/a.mov"), sizeOf("Movies/a.mov"), true);
        const std::string deed = (permanently ? "removeItem " : "trashItem ") + at("Movies/a.mov");
        fake.log->observe([this, deed](const std::string &line) {
            if (line != deed)
                return;
            fake.files.take(at("Movies/a.mov"));
            fake.files.addFile(at("Movies/a.mov"), 7'000'000);
        });
        store.remove(store.effectiveSelection(), permanently);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
        fake.log->observe({});
        EXPECT_EQ(*store.toast(), "Nothing was removed · 1 couldn't be removed (a.mov: it was replaced while it was "
                                  "being removed)");
        EXPECT_TRUE(fake.files.has(at("Movies/a.mov")));
        EXPECT_TRUE(store.selection().empty()) << permanently;
        EXPECT_EQ(sizeOf("Movies/a.mov"), 7'000'000) << "the tree shows what is there now";
        EXPECT_TRUE(verify(*store.root()));
    }
}

TEST_F(StorageStoreTest, AFolderWhereTheTreeShowsAFileIsNotWhatWasSelected)
{
    scanHome();
    fake.files.take(at("Movies/a.mov"));
    fake.files.addFile(at("Movies/a.mov/one"), 1'000'000);
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    store.remove(store.effectiveSelection(), true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_TRUE(fake.files.has(at("Movies/a.mov/one")));
}

TEST_F(StorageStoreTest, ASmallFileInThePlaceOfALargeOneCountsAmongTheSmallOnes)
{
    scanHome();
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    fake.files.take(at("Movies/a.mov"));
    fake.files.addFile(at("Movies/a.mov"), 4'096);
    store.remove(store.effectiveSelection(), true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_EQ(store.node(at("Movies/a.mov")), nullptr);
    EXPECT_EQ(sizeOf("Movies"), 2'004'096);
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, ARemovalThatIsStoppedFinishesTheItemAtHand)
{
    for (const char *name : {"Movies/a.mov", "Movies/b.mov"})
        store.setSelected(at(name), 2'000'000, true);
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    store.remove(store.effectiveSelection(), false);
    ASSERT_TRUE(gate.waitUntilReached());
    EXPECT_FALSE(store.isStopping());
    store.stopRemoval();
    EXPECT_TRUE(store.isStopping());
    gate.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_FALSE(store.isStopping());
    EXPECT_FALSE(fake.files.has(at("Movies/a.mov")));
    EXPECT_TRUE(fake.files.has(at("Movies/b.mov")));
    EXPECT_EQ(store.selection(), (Selection{{at("Movies/b.mov"), 2'000'000}}));
    EXPECT_TRUE(store.toast()->starts_with("Moved 1 item"));
}

TEST_F(StorageStoreTest, ListsStayLargestFirstWhenSomethingInsideAPackageIsRemoved)
{
    fake.files.setPackageExtensions({"app"});
    fake.files.addFile(at("Big.app/Contents/one"), 6'000'000);
    fake.files.addFile(at("Big.app/Contents/two"), 500'000);
    fake.files.addFile(at("Mid.app/Contents/three"), 5'000'000);
    fake.files.addFile(at("Mid.app/Contents/four"), 3'500'000);
    scanHome();
    ASSERT_EQ(store.allFiles().front()->name, "Mid.app");
    const auto isListed = [&](std::string_view name) {
        return std::ranges::any_of(store.allFiles(), [&](const auto &file) { return file->name == name; });
    };
    ASSERT_TRUE(isListed("Big.app"));
    store.didRemove({{{at("Mid.app/Contents/three"), 5'000'000}, {at("Big.app/Contents/one"), 6'000'000}}, {}}, false);
    EXPECT_FALSE(isListed("Big.app")); // only half a megabyte of it is left
    EXPECT_TRUE(isListed("Mid.app"));
    EXPECT_TRUE(std::ranges::is_sorted(store.allFiles(), std::ranges::greater(), &FileNode::size));
}

TEST_F(StorageStoreTest, ABuildFolderThatIsRemovedLeavesItsList)
{
    fake.files.addFile(at("Projects/web/package.json"), 4096);
    fake.files.addFile(at("Projects/web/node_modules/m"), 2'000'000);
    scanHome();
    ASSERT_EQ(store.devJunk().size(), 1u);
    store.didRemove({{{at("Projects/web/node_modules"), 2'000'000}}, {}}, false);
    EXPECT_TRUE(store.devJunk().empty());
}

TEST_F(StorageStoreTest, ThousandsOfRemovedItemsLeaveTheTreeAtOnce)
{
    RemovalOutcome outcome;
    for (int i = 0; i < 3000; ++i) {
        const std::string path = at("Many/" + std::to_string(i));
        fake.files.addFile(path, 1'000'000);
        if (i % 3 != 0) {
            outcome.removed.push_back({path, 1'000'000});
            store.setSelected(path, 1'000'000, true);
        }
    }
    scanHome();
    store.didRemove(outcome, false);
    EXPECT_EQ(sizeOf("Many"), 1'000'000'000);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, ASecondRemovalWhileOneRunsIsIgnored)
{
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    store.remove({{at("Movies/a.mov"), 1}}, false);
    ASSERT_TRUE(gate.waitUntilReached());
    store.remove({{at("Movies/b.mov"), 1}}, false);
    gate.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.isRemoving(); }, patience));
    EXPECT_FALSE(fake.files.has(at("Movies/a.mov")));
    EXPECT_TRUE(fake.files.has(at("Movies/b.mov")));
}

TEST_F(StorageStoreTest, AStoreThatGoesAwayDuringARemovalTouchesNoFurtherItem)
{
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    auto brief = std::make_unique<StorageStore>(fake.host(), locations);
    brief->remove({{at("Movies/a.mov"), 1}, {at("Movies/b.mov"), 1}}, false);
    ASSERT_TRUE(gate.waitUntilReached());
    QTimer::singleShot(0, [&gate] { gate.open(); }); // runs in the event loop while the store waits
    brief.reset();
    EXPECT_FALSE(fake.files.has(at("Movies/a.mov")));
    EXPECT_TRUE(fake.files.has(at("Movies/b.mov")));
}

TEST_F(StorageStoreTest, TheFailuresOfARemovalThatEndsWithTheStoreAreLogged)
{
    fake.files.failRemoval(at("Movies/a.mov"), std::errc::permission_denied);
    Gate gate(*fake.log, "removeItem " + at("Movies/a.mov"));
    auto brief = std::make_unique<StorageStore>(fake.host(), locations);
    brief->remove({{at("Movies/a.mov"), 1}}, true);
    ASSERT_TRUE(gate.waitUntilReached());
    QTimer::singleShot(0, [&gate] { gate.open(); });
    brief.reset();
    ASSERT_EQ(fake.desktop.logged().size(), 1u);
    EXPECT_EQ(fake.desktop.logged().front(), "Corvane removal failures:\na.mov: Permission denied");
}

} // namespace
} // namespace corvane
