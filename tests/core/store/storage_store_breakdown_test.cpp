#include <string>

#include <gtest/gtest.h>

#include <QTest>

#include "core/store/store_fixture.h"

namespace corvane {
namespace {

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
    fake.files.setSystemKind(SystemKind::mac); // whose home folder is measured by scans only
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

TEST_F(StorageStoreTest, ARescanKeepsTheLastBreakdownVisible)
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

TEST_F(StorageStoreTest, SettingsForFullDiskAccessThatCannotBeOpenedAreReported)
{
    fake.files.setSystemKind(SystemKind::mac);
    fake.desktop.fail("x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles", "no");
    fake.desktop.fail("x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?Privacy_AllFiles", "no");
    store.perform({BreakdownAction::Kind::fullDiskAccess, {}});
    ASSERT_TRUE(store.toast());
    EXPECT_EQ(*store.toast(), "Can't open the settings for Full Disk Access");
}

} // namespace
} // namespace corvane
