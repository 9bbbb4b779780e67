#include <gtest/gtest.h>

#include <QSignalSpy>

#include "core/store/store_fixture.h"

namespace corvane {
namespace {

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

TEST_F(StorageStoreTest, SelectedItemsInTheTrashAreReported)
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

TEST_F(StorageStoreTest, TheLibraryAndItsPreferencesCannotBeSelectedButAFileInsideThemCan)
{
    for (const char *refused : {"Library", "Library/Preferences", "Library/Keychains/login.keychain"}) {
        store.setSelected(at(refused), 1, true);
        EXPECT_TRUE(store.selection().empty()) << refused;
    }
    store.setSelected(at("Library/Preferences/com.example.app.plist"), 1, true);
    EXPECT_EQ(store.selection().size(), 1u);
}

} // namespace
} // namespace corvane
