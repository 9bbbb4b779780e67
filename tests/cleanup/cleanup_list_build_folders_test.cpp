#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cleanup/cleanup_list_fixture.h"
#include "support/patience.h"

namespace corvane {
namespace {

using testing::Contains;

TEST_F(CleanupListModelTest, WithoutAScanTheBuildFoldersAskForOne)
{
    measure();
    const int row = model.rowCount() - 1;
    EXPECT_EQ(text(row, Model::KindRole), QStringLiteral("prompt"));
    EXPECT_EQ(text(row), QStringLiteral("Find node_modules, Gradle build folders & more"));
    EXPECT_EQ(text(row, Model::NoteRole),
              QStringLiteral("Run a scan and Corvane will spot regenerable folders inside your projects."));
    EXPECT_FALSE(data(row, Model::WorkingRole).toBool());
    model.activate(row);
    EXPECT_EQ(store.phase(), StorageStore::Phase::scanning);
    EXPECT_TRUE(data(row, Model::WorkingRole).toBool());
    const auto token = store.progress();
    model.activate(row);
    EXPECT_EQ(store.progress(), token) << "a second press does not start another";
}

TEST_F(CleanupListModelTest, AScanWithoutBuildFoldersSaysSo)
{
    addFile("notes.txt", 1'000);
    scanHome();
    EXPECT_EQ(titles(QStringLiteral("none")),
              QStringList(QStringLiteral(
                  "No node_modules, Gradle build outputs, Rust targets or virtualenvs found in this scan.")));
    EXPECT_TRUE(titles(QStringLiteral("prompt")).isEmpty());
    EXPECT_EQ(text(rowOf(QStringLiteral("Project Build Artifacts")), Model::NoteRole), QString());
}

TEST_F(CleanupListModelTest, BuildFoldersAreListedLargestFirstWithProjectKindAndSize)
{
    addProject("small", 2'000'000);
    addProject("harbor", 5'000'000);
    scanHome();
    const int header = rowOf(QStringLiteral("Project Build Artifacts"));
    EXPECT_EQ(text(header, Model::SizeTextRole), QStringLiteral("7 MB"));
    EXPECT_EQ(text(header, Model::NoteRole),
              QStringLiteral("Your build tools regenerate these on the next build or install."));
    EXPECT_EQ(text(header + 1), QStringLiteral("harbor/node_modules"));
    EXPECT_EQ(text(header + 1, Model::TagRole), QStringLiteral("node_modules"));
    EXPECT_EQ(text(header + 1, Model::NoteRole), QStringLiteral("~/Projects/harbor"));
    EXPECT_EQ(text(header + 1, Model::SizeTextRole), QStringLiteral("5 MB"));
    EXPECT_EQ(text(header + 2), QStringLiteral("small/node_modules"));
    EXPECT_EQ(text(header + 1, Model::DescriptionRole),
              QStringLiteral("harbor/node_modules, node_modules, ~/Projects/harbor, 5 MB"));
}

TEST_F(CleanupListModelTest, ABuildFolderIsSelectedRevealedAndShownInTheMap)
{
    addProject("harbor", 5'000'000);
    scanHome();
    const int row = model.rowCount() - 1;
    model.toggle(row);
    EXPECT_TRUE(isSelected("Projects/harbor/node_modules"));
    EXPECT_EQ(store.selectedTotal(), 5'000'000);
    model.reveal(row);
    EXPECT_THAT(fake.log->lines(), Contains("reveal " + at("Projects/harbor/node_modules")));
    model.activate(row);
    EXPECT_EQ(store.sidebar(), StorageStore::SidebarItem::explorer);
    EXPECT_EQ(store.currentFolder()->name, "node_modules");
}

TEST_F(CleanupListModelTest, ARemovedBuildFolderLeavesTheListAndTheTotal)
{
    addProject("small", 2'000'000);
    addProject("harbor", 5'000'000);
    scanHome();
    removeItem("Projects/harbor/node_modules", 5'000'000);
    const int header = rowOf(QStringLiteral("Project Build Artifacts"));
    EXPECT_EQ(text(header + 1), QStringLiteral("small/node_modules"));
    EXPECT_EQ(header + 2, model.rowCount());
    EXPECT_EQ(text(header, Model::SizeTextRole), QStringLiteral("2 MB"));
}

TEST_F(CleanupListModelTest, ABuildFolderThatARemovalEmptiesIsNotOfferedAnyMore)
{
    addProject("small", 2'000'000);
    addProject("harbor", 5'000'000);
    addFile("Projects/harbor/node_modules/last.bin", 1'000'000);
    scanHome();
    removeItem("Projects/harbor/node_modules/blob.bin", 5'000'000);
    const int header = rowOf(QStringLiteral("Project Build Artifacts"));
    EXPECT_EQ(text(header + 1), QStringLiteral("small/node_modules"));
    EXPECT_EQ(text(header + 2), QStringLiteral("harbor/node_modules"));
    EXPECT_EQ(text(header + 2, Model::SizeTextRole), QStringLiteral("1 MB"));
    removeItem("Projects/harbor/node_modules/last.bin", 1'000'000);
    EXPECT_EQ(header + 2, model.rowCount());
    EXPECT_EQ(text(header, Model::SizeTextRole), QStringLiteral("2 MB"));
}

TEST_F(CleanupListModelTest, BuildFoldersOfAStoppedScanAreMarkedAndANewScanIsOffered)
{
    addProject("harbor", 5'000'000);
    store.scan(at("Projects"));
    store.stopScan();
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    const int row = rowOf(QStringLiteral("Partial: the scan was stopped"));
    ASSERT_GE(row, 0);
    EXPECT_EQ(text(row, Model::KindRole), QStringLiteral("partial"));
    EXPECT_EQ(text(row - 1), QStringLiteral("Project Build Artifacts"));
    EXPECT_EQ(text(row, Model::ActionRole), QStringLiteral("Scan Again"));
    EXPECT_TRUE(titles(QStringLiteral("none")).isEmpty()) << "nothing was found where nothing was looked for";
    model.activate(row);
    EXPECT_EQ(store.lastScanPath(), at("Projects"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return store.phase() == StorageStore::Phase::ready; }, patience));
    EXPECT_TRUE(titles(QStringLiteral("partial")).isEmpty());
    EXPECT_EQ(titles(QStringLiteral("artifact")).size(), 1);
}

TEST_F(CleanupListModelTest, ANewScanTakesTheOldBuildFoldersAway)
{
    addProject("harbor", 5'000'000);
    scanHome();
    store.scanHome();
    EXPECT_TRUE(titles(QStringLiteral("artifact")).isEmpty());
    EXPECT_EQ(titles(QStringLiteral("prompt")).size(), 1);
}

} // namespace
} // namespace corvane
