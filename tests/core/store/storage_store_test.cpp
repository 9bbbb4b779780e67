#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include "core/store/store_fixture.h"

namespace corvane {
namespace {

TEST_F(StorageStoreTest, FullDiskAccessIsKnownBeforeTheFirstScan)
{
    fake.files.setSystemKind(SystemKind::mac);
    fake.files.addFile(at("Library/Application Support/com.apple.TCC/TCC.db"), 4096);
    EXPECT_TRUE(StorageStore(fake.host(), locations).hasFullDiskAccess());
    fake.files.failOpening(at("Library/Application Support/com.apple.TCC/TCC.db"));
    EXPECT_FALSE(StorageStore(fake.host(), locations).hasFullDiskAccess());
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

TEST_F(StorageStoreTest, TheVolumeIsReadAgainAfterAScanAndAfterARemoval)
{
    fake.volumes.set("/", {"Disk", 100, 10, std::nullopt});
    scanHome();
    EXPECT_EQ(store.volume().available, 10);
    fake.volumes.set("/", {"Disk", 100, 20, std::nullopt});
    store.didRemove({{{at("Movies/a.mov"), 3'000'000}}, {}}, false);
    EXPECT_EQ(store.volume().available, 20);
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

} // namespace
} // namespace corvane
