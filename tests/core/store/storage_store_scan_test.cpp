#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "core/store/store_fixture.h"

namespace corvane {
namespace {

using ::testing::ElementsAre;

TEST_F(StorageStoreTest, NothingIsScannedUntilAsked)
{
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    EXPECT_FALSE(store.hasScan());
    EXPECT_EQ(store.currentFolder(), nullptr);
}

TEST_F(StorageStoreTest, AFinishedScanPublishesTheTreeAndWhatIsDerivedFromIt)
{
    scanHome();
    ASSERT_NE(store.root(), nullptr);
    EXPECT_EQ(store.root()->path(), home);
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_EQ(store.scannedFiles(), 4);
    EXPECT_EQ(store.scannedFiles(), store.root()->fileCount);
    EXPECT_EQ(store.scannedBytes(), store.root()->size);
    ASSERT_EQ(store.allFiles().size(), 3u);
    EXPECT_EQ(store.allFiles().front()->name, "c.zip");
    ASSERT_FALSE(store.typeBreakdown().empty());
    EXPECT_EQ(store.typeBreakdown().front().type, FileType::video);
    EXPECT_NE(store.node(at("Projects/deep")), nullptr);
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, ASupersededResultThatArrivesAfterTheNewScanHasStartedIsDropped)
{
    store.scan(at("Movies"));
    const auto oldToken = store.progress();
    store.scan(at("Projects"));
    EXPECT_TRUE(oldToken->isCancelled());
    const auto newToken = store.progress();
    ASSERT_NE(oldToken, newToken);

    store.finishScan(resultNamed("/stale"), oldToken);
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    EXPECT_EQ(store.root(), nullptr);

    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), at("Projects"));

    store.finishScan(resultNamed("/stale"), oldToken);
    EXPECT_EQ(store.root()->path(), at("Projects"));
}

TEST_F(StorageStoreTest, StoppingAScanShowsPartialResultsAndSaysSo)
{
    fake.files.addFile(at("Movies/inner/late.mov"), 8'000'000);
    Gate gate(*fake.log, "list " + at("Movies"));
    store.scanHome();
    ASSERT_TRUE(gate.waitUntilReached());
    store.stopScan();
    gate.open();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(sizeOf("Movies"), 5'000'000); // listed before the stop; its subfolders were not entered
    EXPECT_EQ(sizeOf("Movies/inner"), -1);
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Scan stopped — showing partial results");
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, AStoppedScanStaysMarkedAsPartialUntilTheNextOne)
{
    EXPECT_FALSE(store.scanIsPartial());
    {
        Gate gate(*fake.log, "list " + at("Movies"));
        store.scanHome();
        ASSERT_TRUE(gate.waitUntilReached());
        store.stopScan();
        gate.open();
        ASSERT_TRUE(waitForReady());
    }
    store.dismissToast();
    EXPECT_TRUE(store.scanIsPartial());
    EXPECT_TRUE(store.makeScanContext().isPartial);
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.breakdown() && !store.breakdownLoading(); }, patience));
    EXPECT_TRUE(store.breakdown()->scanIsPartial);

    store.rescan();
    EXPECT_FALSE(store.scanIsPartial());
    ASSERT_TRUE(waitForReady());
    EXPECT_FALSE(store.scanIsPartial());
    EXPECT_FALSE(store.makeScanContext().isPartial);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.breakdownLoading(); }, patience));
    EXPECT_FALSE(store.breakdown()->scanIsPartial);
}

TEST_F(StorageStoreTest, ARescanRepeatsTheRootOfTheLastScan)
{
    store.scan(at("Projects"));
    ASSERT_TRUE(waitForReady());
    store.rescan();
    EXPECT_EQ(store.lastScanPath(), at("Projects"));
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), at("Projects"));
}

TEST_F(StorageStoreTest, ARescanBeforeAnyScanIsThatOfTheHomeFolder)
{
    store.rescan();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), home);
}

TEST_F(StorageStoreTest, ARescanKeepsTheFolderShown)
{
    scanHome();
    store.open(store.sharedNode(at("Projects/deep")));
    store.rescan();
    EXPECT_EQ(store.currentFolder(), nullptr);
    store.rescan(); // again, while nothing is shown
    ASSERT_TRUE(waitForReady());
    ASSERT_NE(store.currentFolder(), nullptr);
    EXPECT_EQ(store.currentFolder()->path(), at("Projects/deep"));
    EXPECT_EQ(store.currentFolder(), store.sharedNode(at("Projects/deep")));
}

TEST_F(StorageStoreTest, AfterARescanTheNearestFolderAroundOneThatIsGoneIsShown)
{
    fake.files.addFile(at("Projects/deep/deeper/deepest/d.zip"), 4'000'000);
    scanHome();
    store.open(store.sharedNode(at("Projects/deep/deeper/deepest")));
    fake.files.take(at("Projects/deep/deeper"));
    store.rescan();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.currentFolder()->path(), at("Projects/deep"));

    // A file may have replaced the folder shown.
    fake.files.take(at("Projects/deep"));
    fake.files.addFile(at("Projects/deep"), 3'000'000);
    store.rescan();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.currentFolder()->path(), at("Projects"));

    fake.files.take(at("Projects"));
    store.rescan();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(StorageStoreTest, AScanOfAnotherRootShowsThatRoot)
{
    scanHome();
    store.open(store.sharedNode(at("Projects/deep")));
    store.scan(at("Projects"));
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.currentFolder(), store.root());
    store.scanHome();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(StorageStoreTest, TheWalksCountersArePublishedWhileItRuns)
{
    fake.files.addFile(at("own.mov"), 6'000'000);
    Gate gate(*fake.log, "list " + at("Projects/deep"));
    store.scan(home);
    ASSERT_TRUE(gate.waitUntilReached());
    QSignalSpy spy(&store, &StorageStore::progressChanged);
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.scannedFiles() >= 2; }, patience));
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    EXPECT_GE(spy.count(), 1);
    EXPECT_GE(store.scannedBytes(), 6'000'000);
    EXPECT_TRUE(store.currentPath().starts_with(home));
    gate.open();
    ASSERT_TRUE(waitForReady());
}

TEST_F(StorageStoreTest, ANewScanClearsWhatTheLastOneFound)
{
    scanHome();
    const int revision = store.revision();
    Gate gate(*fake.log, "list " + at("Movies"));
    store.scanHome();
    EXPECT_EQ(store.root(), nullptr);
    EXPECT_TRUE(store.allFiles().empty());
    EXPECT_TRUE(store.typeBreakdown().empty());
    EXPECT_EQ(store.scannedFiles(), 0);
    EXPECT_EQ(store.scannedBytes(), 0);
    EXPECT_TRUE(store.currentPath().empty());
    EXPECT_EQ(store.scanDuration(), 0);
    EXPECT_EQ(store.node(at("Movies")), nullptr);
    EXPECT_GT(store.revision(), revision);
    gate.open();
    ASSERT_TRUE(waitForReady());
}

TEST_F(StorageStoreTest, AReplacedTreeIsLetGoOfInTheBackground)
{
    scanHome();
    const std::weak_ptr<FileNode> old = store.root();
    store.scanHome();
    ASSERT_TRUE(QTest::qWaitFor([&] { return old.expired(); }, patience));
    ASSERT_TRUE(waitForReady());
}

TEST_F(StorageStoreTest, AFinishedScanThatWasNotStoppedSaysNothing)
{
    scanHome();
    EXPECT_FALSE(store.toast());
}

TEST_F(StorageStoreTest, AScanStillRunsWithoutFullDiskAccess)
{
    EXPECT_TRUE(store.hasFullDiskAccess());    // the home can be listed
    fake.files.setSystemKind(SystemKind::mac); // denies access without a readable probe file
    scanHome();
    EXPECT_FALSE(store.hasFullDiskAccess());
    EXPECT_TRUE(store.hasScan());
}

TEST_F(StorageStoreTest, AMissingFolderIsNamedAndEverythingStaysAsItIs)
{
    scanHome();
    const auto before = store.root();
    store.scan(at("no such folder"));
    EXPECT_EQ(store.phase(), StorageStore::Phase::ready);
    EXPECT_EQ(store.root(), before);
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Can't scan no such folder: No such file or directory");
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(StorageStoreTest, FoldersThatCouldNotBeOpenedAreCountedUntilTheNextScan)
{
    fake.files.failOpening(at("Projects/deep"));
    scanHome();
    EXPECT_EQ(store.deniedCount(), 1);
    EXPECT_EQ(store.unreadableCount(), 0);
    store.scan(at("Movies"));
    EXPECT_EQ(store.deniedCount(), 0);
}

TEST_F(StorageStoreTest, AScanThatCouldNotGoOnShowsNothingAndSaysWhy)
{
    fake.files.failOpening(at("Projects/deep"), std::errc::too_many_files_open);
    store.scanHome();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::idle; }, patience));
    EXPECT_FALSE(store.hasScan());
    EXPECT_TRUE(store.toastIsWarning());
    EXPECT_EQ(store.toast(),
              "Can't scan studio: too many files are open at once; close some programs, or raise the limit "
              "(ulimit -n)");
}

TEST_F(StorageStoreTest, TheProgramKeepsItsFullSpeedUntilTheScanHasEnded)
{
    const auto speeds = [this] {
        auto lines = fake.log->linesStartingWith("keepAtFullSpeed");
        for (std::string &line : fake.log->linesStartingWith("slowDown"))
            lines.push_back(std::move(line));
        return lines;
    };
    EXPECT_THAT(speeds(), ElementsAre());
    store.scan(at("Movies"));
    EXPECT_THAT(speeds(), ElementsAre("keepAtFullSpeed Scanning a folder"));
    store.scan(at("Projects")); // replaces the running scan
    EXPECT_THAT(speeds(), ElementsAre("keepAtFullSpeed Scanning a folder"));
    ASSERT_TRUE(waitForReady());
    EXPECT_THAT(speeds(), ElementsAre("keepAtFullSpeed Scanning a folder", "slowDown Scanning a folder"));
}

TEST_F(StorageStoreTest, AScanThatEndsWithNothingToShowGivesTheFullSpeedBack)
{
    Gate gate(*fake.log, "list " + at("Movies"));
    store.scan(at("Movies"));
    ASSERT_TRUE(gate.waitUntilReached());
    fake.files.take(at("Movies"));
    store.didRemove({{{at("Movies"), 5'000'000}}, {}}, false);
    EXPECT_THAT(fake.log->linesStartingWith("slowDown"), ElementsAre());
    gate.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::idle; }, patience));
    EXPECT_THAT(fake.log->linesStartingWith("slowDown"), ElementsAre("slowDown Scanning a folder"));
}

TEST_F(StorageStoreTest, AFileIsNotScanned)
{
    store.scan(at("Movies/a.mov"));
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Can't scan a.mov: it is not a folder");
}

TEST_F(StorageStoreTest, ADanglingLinkIsNotScanned)
{
    fake.files.addLink(at("dangling"), "nowhere");
    store.scan(at("dangling"));
    EXPECT_EQ(store.phase(), StorageStore::Phase::idle);
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(StorageStoreTest, ALinkToAFolderIsScannedWhereItLeads)
{
    fake.files.addLink(at("link"), at("Movies"));
    store.scan(at("link"));
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), at("Movies"));
}

TEST_F(StorageStoreTest, WhatIsRemovedDuringAScanIsNotInItsTree)
{
    Gate gate(*fake.log, "list " + at("Projects/deep")); // the movies may or may not have been walked by then
    store.scanHome();
    ASSERT_TRUE(gate.waitUntilReached());
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return !fake.log->linesStartingWith("list " + at("Movies")).empty(); }, patience));
    fake.files.take(at("Movies/a.mov"));
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false);
    gate.open();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.node(at("Movies/a.mov")), nullptr);
    EXPECT_EQ(sizeOf("Movies"), 2'000'000);
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, WhatCameBackAfterItsRemovalDuringAScanStaysInTheTree)
{
    Gate gate(*fake.log, "list " + at("Movies"));
    store.scanHome();
    ASSERT_TRUE(gate.waitUntilReached());
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false); // the fake file system still has it
    gate.open();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(sizeOf("Movies/a.mov"), 3'000'000);
}

TEST_F(StorageStoreTest, AFolderThatIsRemovedDuringItsOwnScanIsNotShown)
{
    Gate gate(*fake.log, "list " + at("Movies"));
    store.scan(at("Movies"));
    ASSERT_TRUE(gate.waitUntilReached());
    fake.files.take(at("Movies"));
    store.didRemove({{{at("Movies"), 5'000'000}}, {}}, false);
    gate.open();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::idle; }, patience));
    EXPECT_FALSE(store.hasScan());
}

TEST_F(StorageStoreTest, AHomeThatIsALinkKeepsItsNameAsTheScannedFolder)
{
    fake.files.move(home, "/data/u");
    fake.files.addLink(home, "/data/u");
    scanHome();
    EXPECT_EQ(store.root()->path(), home);
    EXPECT_EQ(store.root()->children.front()->parentPath(home), "~");
}

TEST_F(StorageStoreTest, AStoreThatGoesAwayDuringAScanStopsItFirst)
{
    std::shared_ptr<ScanProgress> token;
    Gate gate(*fake.log, "list " + at("Movies"));
    {
        StorageStore brief(fake.host(), locations);
        brief.scanHome();
        token = brief.progress();
        ASSERT_TRUE(gate.waitUntilReached());
        gate.open();
    }
    EXPECT_TRUE(token->isCancelled());
}

} // namespace
} // namespace corvane
