#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "core/store/store_over_a_home.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::size_t allRows = 18 + cleanupTableOf(SystemKind::linuxSystem).rows.size();

/// A store over a fake home folder with caches of 9 MB, a Trash of 2 MB and downloads of 20 MB.
class CleanupStoreTest : public testing::Test, protected StoreOverAHome {
protected:
    CleanupStoreTest()
    {
        addFile("Library/Caches/app/deep/a", 5'000'000);
        addFile("Library/Caches/app/b", 1'000'000);
        addFile("Library/Caches/other", 3'000'000);
        addFile(".Trash/old", 2'000'000);
        addFile("Downloads/film.mov", 20'000'000);
    }

    void measure()
    {
        store.refreshCleanup();
        waitForMeasurement();
    }
    void waitForMeasurement() { ASSERT_TRUE(waitForCleanup()); }
    const CleanupItem &item(std::string_view id) const
    {
        return *std::ranges::find_if(store.cleanupItems(), [&](const CleanupItem &each) { return each.def->id == id; });
    }
    std::vector<std::string> selectedPaths() const
    {
        std::vector<std::string> paths;
        for (const auto &[path, size] : store.selection())
            paths.push_back(path);
        return paths;
    }
};

TEST_F(CleanupStoreTest, NothingIsMeasuredUntilAsked)
{
    EXPECT_TRUE(store.cleanupItems().empty());
    EXPECT_FALSE(store.cleanupLoading());
    EXPECT_EQ(store.safeCleanupTotal(), 0);
}

TEST_F(CleanupStoreTest, AMeasurementPublishesEveryItemAndSaysSoMeanwhile)
{
    const QSignalSpy changed(&store, &StorageStore::cleanupChanged);
    store.refreshCleanup();
    EXPECT_TRUE(store.cleanupLoading());
    EXPECT_EQ(changed.count(), 1);
    waitForMeasurement();
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(store.cleanupItems().size(), allRows);
    EXPECT_EQ(store.cleanupItems().front().def->id, "downloads");
    EXPECT_EQ(item("caches").total(), 9'000'000);
}

TEST_F(CleanupStoreTest, TheSafeTotalLeavesOutWhatIsToBeReviewed)
{
    measure();
    EXPECT_EQ(store.safeCleanupTotal(), 11'000'000);
}

TEST_F(CleanupStoreTest, ASupersededMeasurementThatArrivesAfterTheNewRequestIsDropped)
{
    store.refreshCleanup();
    const int oldToken = store.cleanupToken();
    store.refreshCleanup();
    const std::vector<CleanupItem> stale{{CleanupCatalog::definitions.data(), {{at("stale"), 1}}, true}};
    store.finishCleanup(stale, oldToken);
    EXPECT_TRUE(store.cleanupLoading());
    EXPECT_TRUE(store.cleanupItems().empty());

    waitForMeasurement();
    EXPECT_EQ(store.cleanupItems().size(), allRows);
    store.finishCleanup(stale, oldToken);
    EXPECT_EQ(store.cleanupItems().size(), allRows);
}

TEST_F(CleanupStoreTest, WhatCannotBeListedNeedsAccessAndAddsNothing)
{
    fake.files.failOpening(at(".Trash"));
    measure();
    EXPECT_FALSE(item("trash").accessible);
    EXPECT_TRUE(item("logs").accessible) << "one that is missing is only empty";
    EXPECT_EQ(store.safeCleanupTotal(), 9'000'000);
}

TEST_F(CleanupStoreTest, AFinishedScanMeasuresTheCatalogue)
{
    store.scanHome();
    ASSERT_TRUE(waitForReady());
    waitForMeasurement();
    EXPECT_EQ(store.cleanupItems().size(), allRows);
}

TEST_F(CleanupStoreTest, AScanThatEndsDuringAMeasurementLetsItGoOn)
{
    store.refreshCleanup();
    const int token = store.cleanupToken();
    store.scanHome();
    auto result = std::make_shared<StorageStore::ScanResult>();
    result->root = std::make_shared<FileNode>(home, FileNode::Kind::directory);
    store.finishScan(std::move(result), store.progress());
    EXPECT_EQ(store.cleanupToken(), token);
    waitForMeasurement();
    EXPECT_EQ(item("caches").total(), 9'000'000);
}

TEST_F(CleanupStoreTest, SelectingAllThatIsSafeSelectsNothingElse)
{
    measure();
    store.selectAllSafeCleanup();
    EXPECT_THAT(selectedPaths(), ElementsAre(at(".Trash/old"), at("Library/Caches/app"), at("Library/Caches/other")));
    EXPECT_EQ(store.selectedTotal(), store.safeCleanupTotal());
}

TEST_F(CleanupStoreTest, SelectingAllThatIsSafeSelectsNothingProtected)
{
    // The link's target belongs to the system.
    fake.files.addFile("/usr/share/manual", 4'000'000);
    fake.files.addFolder(at(".npm"));
    fake.files.addLink(at(".npm/_cacache"), "/usr/share");
    measure();
    EXPECT_EQ(item("npm").total(), 0);
    store.selectAllSafeCleanup();
    EXPECT_FALSE(store.isSelected(at(".npm/_cacache/manual")));
    EXPECT_EQ(store.selection().size(), 3u);
}

TEST_F(CleanupStoreTest, AfterARemovalTheFiguresFollowAtOnceAndAreMeasuredAgain)
{
    measure();
    const QSignalSpy changed(&store, &StorageStore::cleanupChanged);
    store.didRemove({{{at("Library/Caches/app"), 6'000'000}}, {}}, false);
    EXPECT_EQ(item("caches").total(), 3'000'000);
    EXPECT_EQ(store.safeCleanupTotal(), 5'000'000);
    EXPECT_TRUE(store.cleanupLoading());
    EXPECT_EQ(changed.count(), 2);

    // Another program has recreated it meanwhile.
    waitForMeasurement();
    EXPECT_EQ(item("caches").total(), 9'000'000);
}

TEST_F(CleanupStoreTest, WhatIsRemovedInsideAnEntryMakesItSmaller)
{
    measure();
    store.didRemove({{{at("Library/Caches/app/deep"), 5'000'000}}, {}}, false);
    EXPECT_THAT(item("caches").entries,
                ElementsAre(CleanupEntry{at("Library/Caches/other"), 3'000'000},
                            CleanupEntry{at("Library/Caches/app"), 1'000'000, FileNode::Kind::directory}))
        << "and the order follows";
}

TEST_F(CleanupStoreTest, RemovingALocationEmptiesItsItemAndTheOrderFollows)
{
    measure();
    store.didRemove({{{at("Downloads"), 20'000'000}}, {}}, false);
    EXPECT_THAT(item("downloads").entries, IsEmpty());
    EXPECT_EQ(store.cleanupItems().front().def->id, "caches");
}

TEST_F(CleanupStoreTest, WhatIsRemovedElsewhereChangesNothing)
{
    measure();
    const std::vector<CleanupItem> before = store.cleanupItems();
    store.didRemove({{{at("Library/Caches/applause"), 1}}, {}}, false);
    EXPECT_EQ(store.cleanupItems(), before);
}

TEST_F(CleanupStoreTest, ARemovalDuringAMeasurementRestartsIt)
{
    store.refreshCleanup();
    const int token = store.cleanupToken();
    store.didRemove({{{at(".Trash/old"), 2'000'000}}, {}}, true);
    EXPECT_GT(store.cleanupToken(), token);
    fake.files.take(at(".Trash/old"));
    waitForMeasurement();
    EXPECT_EQ(item("caches").total(), 9'000'000);
}

TEST_F(CleanupStoreTest, TheSizesOfTheSelectionFollowANewMeasurement)
{
    measure();
    store.selectAllSafeCleanup();
    fake.files.addFile(at("Library/Caches/app/c"), 500'000);
    measure();
    EXPECT_EQ(store.selectedTotal(), 11'500'000);
}

TEST_F(CleanupStoreTest, AStoreThatGoesAwayDuringAMeasurementStopsIt)
{
    for (int i = 0; i < 100; ++i)
        fake.files.addFile(at("Library/Logs/" + std::to_string(i) + "/log"), 1'000);
    std::atomic<int> listed = 0;
    auto brief = std::make_unique<StorageStore>(fake.host(), locations);
    std::atomic<bool> goesAway = false;
    fake.log->observe([&](const std::string &line) {
        if (!line.starts_with("list " + at("Library/Logs/")))
            return;
        // Block the first listing until the store is about to wait for the job.
        if (listed++ == 0) {
            while (!goesAway)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    brief->refreshCleanup();
    ASSERT_TRUE(QTest::qWaitFor([&] { return listed > 0; }, patience));
    goesAway = true;
    brief.reset();
    fake.log->observe({});
    EXPECT_LT(listed, 100);
}

TEST_F(CleanupStoreTest, TheSystemsOwnSafeRowsAreSafeAsWell)
{
    fake.files.addFile(at(".cargo/registry/crate"), 4'000'000);
    fake.files.addFile(at(".ollama/models/blob"), 7'000'000);
    measure();
    EXPECT_EQ(store.safeCleanupTotal(), 15'000'000);
    store.selectAllSafeCleanup();
    EXPECT_TRUE(store.isSelected(at(".cargo/registry/crate")));
    EXPECT_FALSE(store.isSelected(at(".ollama/models/blob")));
    store.didRemove({{{at(".cargo/registry/crate"), 4'000'000}}, {}}, false);
    EXPECT_EQ(store.safeCleanupTotal(), 11'000'000);
}

class CleanupCommandsTest : public CleanupStoreTest {
protected:
    CleanupCommandsTest()
    {
        fake.files.addFile("/usr/bin/apt", 1);
        fake.files.addFile("/var/cache/apt/archives/a.deb", 5'000);
    }
    bool waitForCommands(std::int64_t bytes)
    {
        return QTest::qWaitFor([&] { return bytesOf(store.cleanupCommands()) == bytes; }, patience);
    }
};

TEST_F(CleanupCommandsTest, AMeasurementPublishesTheCommandsAsWell)
{
    EXPECT_TRUE(store.cleanupCommands().empty());
    const QSignalSpy changed(&store, &StorageStore::cleanupCommandsChanged);
    measure();
    ASSERT_TRUE(waitForCommands(5'000));
    EXPECT_EQ(store.cleanupCommands().front().command, "sudo apt clean");
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(store.safeCleanupTotal(), 11'000'000) << "they are not among what may be cleared here";

    fake.files.addFile("/var/cache/apt/archives/b.deb", 1'000);
    measure();
    EXPECT_TRUE(waitForCommands(6'000));
}

TEST_F(CleanupCommandsTest, ASupersededSearchThatArrivesAfterTheNewRequestIsDropped)
{
    store.refreshCleanup();
    const int oldToken = store.cleanupCommandsToken();
    store.refreshCleanup();
    store.finishCleanupCommands({AdminCommand{.id = "stale", .bytes = 1}}, oldToken);
    EXPECT_TRUE(store.cleanupCommands().empty());
    ASSERT_TRUE(waitForCommands(5'000));
    store.finishCleanupCommands({}, oldToken);
    EXPECT_EQ(store.cleanupCommands().size(), 1u);
}

TEST_F(CleanupStoreTest, AFolderOfTheTreeIsShownInTheMap)
{
    store.setSidebar(StorageStore::SidebarItem::cleanup);
    store.scanHome();
    ASSERT_TRUE(waitForReady());
    const std::shared_ptr<FileNode> downloads = store.root()->children.front();
    store.showInMap(downloads);
    EXPECT_EQ(store.currentFolder(), downloads);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);

    store.setSidebar(StorageStore::SidebarItem::cleanup);
    store.showInMap(std::make_shared<FileNode>(at("Downloads"), FileNode::Kind::directory));
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::cleanup) << "a node of another tree leads nowhere";
}

} // namespace
} // namespace corvane
