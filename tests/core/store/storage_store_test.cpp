#include "core/store/storage_store.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "platform/fake_host.h"

namespace corvane {
namespace {

constexpr int patience = 20'000; // milliseconds; only a hang takes that long

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
    result->summary = ScanSummary::make(result->root);
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
    store.scanHome();
    store.stopScan();
    ASSERT_TRUE(waitForReady());
    EXPECT_TRUE(store.hasScan());
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Scan stopped — showing partial results");
    EXPECT_TRUE(verify(*store.root()));
}

TEST_F(StorageStoreTest, AFinishedScanThatWasNotStoppedSaysNothing)
{
    scanHome();
    EXPECT_FALSE(store.toast());
}

TEST_F(StorageStoreTest, AScanStillRunsWithoutFullDiskAccess)
{
    EXPECT_TRUE(store.hasFullDiskAccess()); // a home without a Library folder that can be listed
    fake.files.addFolder(at("Library"));    // one with a Library but no probe file to open denies access
    scanHome();
    EXPECT_FALSE(store.hasFullDiskAccess());
    EXPECT_TRUE(store.hasScan());
}

TEST_F(StorageStoreTest, FullDiskAccessIsKnownBeforeTheFirstScan)
{
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
    store.didRemove({{}, {"a.mov: Operation not permitted"}}, false);
    EXPECT_EQ(*store.toast(), "Nothing was removed · 1 couldn't be removed (a.mov: Operation not permitted)");
    EXPECT_TRUE(store.toastIsWarning());
    ASSERT_EQ(fake.desktop.logged().size(), 1u);
    EXPECT_EQ(fake.desktop.logged().front(), "Corvane removal failures:\na.mov: Operation not permitted");
}

TEST_F(StorageStoreTest, WhatIsRemovedDuringAScanIsNotInItsTree)
{
    store.scanHome();
    fake.files.take(at("Movies/a.mov"));
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false);
    ASSERT_TRUE(waitForReady());
    EXPECT_EQ(store.node(at("Movies/a.mov")), nullptr);
    EXPECT_TRUE(verify(*store.root()));
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

TEST_F(StorageStoreTest, AStoreThatGoesAwayDuringAScanStopsItCleanly)
{
    for (int i = 0; i < 20; ++i) {
        StorageStore brief(systemHost(), PathGuard::locations());
        brief.scan("/usr");
        QTest::qWait(i % 4);
    }
    SUCCEED(); // the sanitizers are the judges
}

} // namespace
} // namespace corvane
