#include "core/store/storage_store.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "cleanup/dev_junk_rule.h"
#include "platform/fake_host.h"

namespace corvane {
namespace {

constexpr int patience = 20'000; // milliseconds; only a hang takes that long

/// Holds a background thread at a call of the system until the test lets it go on.
class Gate {
public:
    /// Holds the first call that is recorded as `line`.
    Gate(CallLog &log, std::string line) : m_log(log), m_line(std::move(line))
    {
        m_log.observe([this](const std::string &recorded) {
            if (recorded != m_line || m_reached.exchange(true))
                return;
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return m_isOpen; });
        });
    }
    ~Gate()
    {
        open();
        m_log.observe({});
    }

    bool waitUntilReached() const
    {
        return QTest::qWaitFor([this] { return m_reached.load(); }, patience);
    }
    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }

private:
    CallLog &m_log;
    const std::string m_line;
    std::atomic<bool> m_reached = false;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
};

/// A store over a small home folder in memory.
class StorageStoreTest : public testing::Test {
protected:
    StorageStoreTest()
    {
        fake.files.setHome(home);
        fake.files.addFile(at("Movies/a.mov"), 3'000'000);
        fake.files.addFile(at("Movies/b.mov"), 2'000'000);
        fake.files.addFile(at("Projects/deep/c.zip"), 4'000'000);
        fake.files.addFile(at("Projects/small.txt"), 5'000);
    }

    bool waitForReady()
    {
        return QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience);
    }
    void scanHome()
    {
        store.scanHome();
        ASSERT_TRUE(waitForReady());
    }
    std::string at(const std::string &relative) const { return home + "/" + relative; }
    std::int64_t sizeOf(const std::string &relative) const
    {
        const FileNode *node = store.node(at(relative));
        return node == nullptr ? -1 : node->size;
    }

    const std::string home = "/Users/u";
    FakeHost fake;
    ProtectedLocations locations{home, ProtectedPlaces{}};
    StorageStore store{fake.host(), locations};
};

std::shared_ptr<StorageStore::ScanResult> resultNamed(const std::string &path)
{
    auto result = std::make_shared<StorageStore::ScanResult>();
    result->root = std::make_shared<FileNode>(path, FileNode::Kind::directory);
    result->summary = ScanSummary::make(result->root, DevJunkRule::match);
    return result;
}

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
    EXPECT_EQ(sizeOf("Movies"), 5'000'000); // listed before the stop; what lies below was no longer entered
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
    store.rescan(); // once more, while nothing is shown
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

    // A file may have taken the place of the folder shown.
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
    EXPECT_TRUE(store.hasFullDiskAccess());    // a home that can be listed
    fake.files.setSystemKind(SystemKind::mac); // which without a probe file to open denies access
    scanHome();
    EXPECT_FALSE(store.hasFullDiskAccess());
    EXPECT_TRUE(store.hasScan());
}

TEST_F(StorageStoreTest, FullDiskAccessIsKnownBeforeTheFirstScan)
{
    fake.files.setSystemKind(SystemKind::mac);
    fake.files.addFile(at("Library/Application Support/com.apple.TCC/TCC.db"), 4096);
    EXPECT_TRUE(StorageStore(fake.host(), locations).hasFullDiskAccess());
    fake.files.failOpening(at("Library/Application Support/com.apple.TCC/TCC.db"));
    EXPECT_FALSE(StorageStore(fake.host(), locations).hasFullDiskAccess());
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
    EXPECT_EQ(store.toast(), "Can't scan u: too many files are open at once; close some programs, or raise the limit "
                             "(ulimit -n)");
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

TEST_F(StorageStoreTest, OpeningAFolderShowsItAndOpeningAFileShowsItsFolder)
{
    scanHome();
    FileNode *deep = store.node(at("Projects/deep"));
    ASSERT_NE(deep, nullptr);
    store.open(deep->children.front());
    EXPECT_EQ(store.currentFolder()->path(), at("Projects/deep"));
    store.openParent();
    EXPECT_EQ(store.currentFolder()->path(), at("Projects"));
    store.openParent();
    store.openParent();
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(StorageStoreTest, ANodeOfAnOlderTreeIsNotOpened)
{
    scanHome();
    const auto old = store.root()->children.front();
    scanHome();
    store.open(old);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(StorageStoreTest, AProtectedPathIsSilentlyNotSelected)
{
    store.setSelected(at("Documents"), 10, true);
    EXPECT_TRUE(store.selection().empty());
    store.setSelected("/usr/lib", 10, true);
    EXPECT_TRUE(store.selection().empty());
    store.setSelected(at("Movies/a.mov"), 10, true);
    EXPECT_EQ(store.selection().size(), 1u);
}

TEST_F(StorageStoreTest, AFolderAndAFileInsideItCountOnce)
{
    scanHome();
    store.setSelected(at("Projects"), sizeOf("Projects"), true);
    store.setSelected(at("Projects/deep/c.zip"), sizeOf("Projects/deep/c.zip"), true);
    EXPECT_EQ(store.selection().size(), 2u);
    EXPECT_EQ(store.selectedEntries().size(), 1u);
    EXPECT_EQ(store.selectedTotal(), sizeOf("Projects"));
    EXPECT_TRUE(store.isCovered(at("Projects/small.txt")));
    EXPECT_FALSE(store.isSelected(at("Projects/small.txt")));
}

TEST_F(StorageStoreTest, SelectingAnnouncesItselfOnlyWhenSomethingChanges)
{
    QSignalSpy spy(&store, &StorageStore::selectionChanged);
    store.setSelected(at("x"), 1, true);
    store.setSelected(at("x"), 1, true);
    store.setSelected(at("y"), 1, false);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(StorageStoreTest, TheSelectionOutlivesARescanAndItsSizesFollow)
{
    scanHome();
    store.setSelected(at("Movies/a.mov"), 7, true);
    scanHome();
    ASSERT_TRUE(store.isSelected(at("Movies/a.mov")));
    EXPECT_EQ(store.selection().at(at("Movies/a.mov")), sizeOf("Movies/a.mov"));
}

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

TEST_F(StorageStoreTest, AnItemThatTookTheSelectedOnesPlaceStaysUntilItIsSelectedAnew)
{
    scanHome();
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    fake.files.take(at("Movies/a.mov"));
    fake.files.addFile(at("Movies/a.mov/one"), 1'000'000);
    store.setSelected(at("Movies/a.mov"), 3'000'000, true); // it is selected already
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
        fake.log->observe([&](const std::string &line) {
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

TEST_F(StorageStoreTest, WhatIsSelectedInTheTrashIsTold)
{
    fake.files.addFile(at(".Trash/old"), 1'000'000);
    fake.trash.setTrashFolders({at(".Trash")});
    store.setSelected(at(".Trash/old"), 1'000'000, true);
    store.setSelected(at("Movies/a.mov"), 3'000'000, true);
    ASSERT_EQ(store.selectedInTrash().size(), 1u);
    EXPECT_EQ(store.selectedInTrash().front(), (SelectedEntry{at(".Trash/old"), 1'000'000}));
    store.setSelected(at(".Trash/old"), 1'000'000, false);
    EXPECT_TRUE(store.selectedInTrash().empty());
}

TEST_F(StorageStoreTest, WhatIsRemovedDuringAScanIsNotInItsTree)
{
    Gate gate(*fake.log, "list " + at("Projects/deep")); // the walk may have seen the movies by then, or not
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
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false); // the fake still has it
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
    EXPECT_FALSE(isListed("Big.app")); // half a megabyte is left of it
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

TEST_F(StorageStoreTest, TheVolumeIsReadAgainAfterAScanAndAfterARemoval)
{
    fake.volumes.set("/", {"Disk", 100, 10, std::nullopt});
    scanHome();
    EXPECT_EQ(store.volume().available, 10);
    fake.volumes.set("/", {"Disk", 100, 20, std::nullopt});
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false);
    EXPECT_EQ(store.volume().available, 20);
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

TEST_F(StorageStoreTest, TheLibraryAndItsPreferencesCannotBeSelectedButAFileInsideThemCan)
{
    for (const char *refused : {"Library", "Library/Preferences", "Library/Keychains/login.keychain"}) {
        store.setSelected(at(refused), 1, true);
        EXPECT_TRUE(store.selection().empty()) << refused;
    }
    store.setSelected(at("Library/Preferences/com.example.app.plist"), 1, true);
    EXPECT_EQ(store.selection().size(), 1u);
}

TEST_F(StorageStoreTest, AHomeThatIsALinkKeepsItsNameAsTheScannedFolder)
{
    fake.files.move(home, "/data/u");
    fake.files.addLink(home, "/data/u");
    scanHome();
    EXPECT_EQ(store.root()->path(), home);
    EXPECT_EQ(store.root()->children.front()->parentPath(home), "~");
}

TEST_F(StorageStoreTest, ASupersededBreakdownThatArrivesAfterTheNewRequestIsDropped)
{
    store.refreshBreakdown();
    const int oldToken = store.breakdownToken();
    store.refreshBreakdown();
    DiskBreakdown stale;
    stale.volumeName = "Stale";
    store.finishBreakdown(stale, oldToken);
    EXPECT_TRUE(store.breakdownLoading());
    EXPECT_FALSE(store.breakdown());

    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.breakdownLoading(); }, patience));
    ASSERT_TRUE(store.breakdown());
    EXPECT_NE(store.breakdown()->volumeName, "Stale");
    store.finishBreakdown(stale, oldToken);
    EXPECT_NE(store.breakdown()->volumeName, "Stale");
}

TEST_F(StorageStoreTest, TheBreakdownFollowsAScanAndARemoval)
{
    scanHome();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.breakdownLoading(); }, patience));
    ASSERT_TRUE(store.breakdown());
    EXPECT_TRUE(store.breakdown()->hasScan);
    store.didRemove({{{at("Movies"), sizeOf("Movies")}}, {}}, false);
    EXPECT_TRUE(store.breakdownLoading());
    EXPECT_EQ(store.makeScanContext().rootSize, store.root()->size);
}

TEST_F(StorageStoreTest, ARescanBeforeTheFirstBreakdownIsThereMeasuresTheDiskWithoutAScan)
{
    store.scan(at("Projects"));
    store.finishScan(resultNamed(at("Projects")), store.progress());
    ASSERT_TRUE(store.breakdownLoading());
    ASSERT_FALSE(store.breakdown());
    Gate gate(*fake.log, "list " + at("Movies"));

    store.scanHome();

    EXPECT_TRUE(QTest::qWaitFor([&] { return store.breakdown().has_value(); }, patience));
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    ASSERT_TRUE(store.breakdown());
    EXPECT_FALSE(store.breakdown()->hasScan);
    gate.open();
    ASSERT_TRUE(waitForReady());
}

TEST_F(StorageStoreTest, ARescanLeavesTheLastBreakdownToBeLookedAt)
{
    scanHome();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !store.breakdownLoading(); }, patience));
    store.refreshBreakdown();
    Gate gate(*fake.log, "list " + at("Movies"));

    store.scanHome();

    EXPECT_FALSE(store.breakdownLoading());
    ASSERT_TRUE(store.breakdown());
    EXPECT_TRUE(store.breakdown()->hasScan);
    gate.open();
    ASSERT_TRUE(waitForReady());
}

TEST_F(StorageStoreTest, TheScanContextHasTheFiveLargestChildrenAndTheSystemFolderOfAWholeDiskAlone)
{
    EXPECT_EQ(store.makeScanContext().rootPath, std::nullopt);
    for (int i = 1; i <= 6; ++i)
        fake.files.addFile("/System/big" + std::to_string(i), i * 1'000'000);
    fake.files.addFile(at("System/own"), 9'000'000);
    scanHome();
    EXPECT_EQ(store.makeScanContext().rootPath, home);
    EXPECT_EQ(store.makeScanContext().systemDirSize, 0);
    EXPECT_EQ(store.makeScanContext().topChildren.front(), (NamedSize{"System", 9'000'000}));

    store.scanEntireDisk();
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.makeScanContext().systemDirSize, 21'000'000);
    store.scan("/System");
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.makeScanContext().topChildren.size(), 5u);
    EXPECT_EQ(store.makeScanContext().topChildren.back(), (NamedSize{"big2", 2'000'000}));
}

TEST_F(StorageStoreTest, AnActionOfTheBreakdownIsCarriedOut)
{
    store.setSidebar(StorageStore::SidebarItem::breakdown);
    store.perform({BreakdownAction::Kind::openMap, {}});
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);

    fake.desktop.fail("/opt", "There is no file manager.");
    store.perform({BreakdownAction::Kind::reveal, "/opt"});
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Can't show opt: There is no file manager.");

    store.perform({BreakdownAction::Kind::scanHome, {}});
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.root()->path(), home);
}

TEST_F(StorageStoreTest, AnItemThatTurnsOutNotToBeShownIsReported)
{
    store.reveal("/opt");
    EXPECT_FALSE(store.toast());
    fake.desktop.failRevealsLate("no file manager is available");
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.toast().has_value(); }, patience));
    EXPECT_EQ(*store.toast(), "Can't show opt: no file manager is available");
    EXPECT_TRUE(store.toastIsWarning());
}

TEST_F(StorageStoreTest, AFailureToShowAnItemThatArrivesAfterTheStoreIsGoneIsDropped)
{
    {
        StorageStore brief(fake.host(), locations);
        brief.reveal("/opt");
    }
    fake.desktop.failRevealsLate("no file manager is available");
    QCoreApplication::processEvents();
    EXPECT_FALSE(store.toast());
}

TEST_F(StorageStoreTest, SettingsForFullDiskAccessThatCannotBeOpenedAreReported)
{
    fake.desktop.fail("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles", "no");
    fake.desktop.fail("x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles", "no");
    store.perform({BreakdownAction::Kind::fullDiskAccess, {}});
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Can't open the settings for Full Disk Access");
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

TEST_F(StorageStoreTest, AStoreThatGoesAwayDuringARemovalTouchesNoFurtherItem)
{
    Gate gate(*fake.log, "trashItem " + at("Movies/a.mov"));
    auto brief = std::make_unique<StorageStore>(fake.host(), locations);
    brief->remove({{at("Movies/a.mov"), 1}, {at("Movies/b.mov"), 1}}, false);
    ASSERT_TRUE(gate.waitUntilReached());
    QTimer::singleShot(0, [&gate] { gate.open(); }); // runs in the loop that the store turns while it waits
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
