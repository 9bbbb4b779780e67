#include <gtest/gtest.h>

#include "cleanup/cleanup_list_fixture.h"
#include "support/patience.h"

namespace corvane {
namespace {

class LinuxCleanupListTest : public CleanupListModelTest {
protected:
    LinuxCleanupListTest() : CleanupListModelTest(SystemKind::linuxSystem) {}

    void addPackageCache(std::int64_t size)
    {
        fake.files.addFile("/usr/bin/apt", 1);
        fake.files.addFile("/var/cache/apt/archives/a.deb", size);
    }
    void measureWithCommands(std::size_t count)
    {
        measure();
        ASSERT_TRUE(QTest::qWaitFor([&] { return store.cleanupCommands().size() == count; }, patience));
    }
};

const QString package = QStringLiteral("Package cache");

TEST_F(LinuxCleanupListTest, NeitherBeforeNorAfterAMeasurementIsAProgramOfAMacNamed)
{
    const auto namesOne = [&] {
        for (int row = 0; row < model.rowCount(); ++row) {
            for (const char *word : {"Xcode", "Simulator", "iPhone", "Mail", "iOS"}) {
                if (text(row).contains(QLatin1String(word)))
                    return true;
            }
        }
        return false;
    };
    EXPECT_EQ(text(1), caches);
    EXPECT_FALSE(namesOne());
    addFile("Downloads/a", 1'000);
    measure();
    for (int row = 0; row < model.rowCount(); ++row)
        model.setExpanded(row, true);
    EXPECT_FALSE(namesOne());
}

TEST_F(LinuxCleanupListTest, OwnRowsStandBetweenTheOthersLargestFirst)
{
    addFile("Library/Caches/a", 3'000'000);
    addFile("snap/editor/common/.cache/b", 5'000'000);
    addFile(".Trash/c", 2'000'000);
    measure();
    EXPECT_EQ(text(1), QStringLiteral("Snap App Caches"));
    EXPECT_EQ(text(2), caches);
    EXPECT_EQ(text(3), QStringLiteral("Trash"));
    EXPECT_EQ(text(0, Model::SizeTextRole), QStringLiteral("10 MB"));
    expand(QStringLiteral("Snap App Caches"));
    EXPECT_EQ(entries(), QStringList(QStringLiteral("editor")));
}

TEST_F(LinuxCleanupListTest, WhatDoesNotExistIsFoldedAtTheEndOfItsGroup)
{
    addFile("Library/Caches/a", 3'000'000);
    measure();
    EXPECT_EQ(text(1), caches);
    EXPECT_EQ(text(2, Model::KindRole), QStringLiteral("folded"));
    EXPECT_EQ(text(2), QStringLiteral("%1 more places hold nothing").arg(systemPlaces() - 1));
    EXPECT_TRUE(data(2, Model::EndsBoxRole).toBool());
    EXPECT_FALSE(data(2, Model::ExpandedRole).toBool());
    const int rows = model.rowCount();

    model.activate(2);
    EXPECT_TRUE(data(2, Model::ExpandedRole).toBool());
    EXPECT_EQ(model.rowCount(), rows + systemPlaces() - 1);
    EXPECT_EQ(text(3), QStringLiteral("Trash"));
    EXPECT_FALSE(data(2, Model::EndsBoxRole).toBool());
    EXPECT_TRUE(data(2 + systemPlaces() - 1, Model::EndsBoxRole).toBool());

    model.setExpanded(2, false);
    EXPECT_EQ(model.rowCount(), rows);
}

TEST_F(LinuxCleanupListTest, WhereNothingElseIsInTheGroupTheFoldedRowCountsNoMorePlaces)
{
    measure();
    EXPECT_EQ(text(1, Model::KindRole), QStringLiteral("folded"));
    EXPECT_EQ(text(1), QStringLiteral("%1 places hold nothing").arg(systemPlaces()));
}

TEST_F(LinuxCleanupListTest, AFoldedRowSelectsNothing)
{
    addFile("Library/Caches/a", 3'000'000);
    measure();
    model.toggle(2);
    model.select(2);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_FALSE(data(2, Model::CheckableRole).toBool());
}

TEST_F(LinuxCleanupListTest, CommandsStandInASectionOfTheirOwnAtTheEnd)
{
    addFile("Library/Caches/a", 3'000'000);
    addPackageCache(5'900'000);
    measureWithCommands(1);
    const int row = model.rowCount() - 1;
    EXPECT_EQ(text(row - 1), QStringLiteral("Needs the Administrator"));
    EXPECT_EQ(text(row - 1, Model::SymbolRole), QStringLiteral("lock"));
    EXPECT_EQ(text(row - 1, Model::SizeTextRole), QStringLiteral("5.9 MB"));
    EXPECT_EQ(text(row - 1, Model::NoteRole),
              QStringLiteral("Corvane never runs these. Copy a command and run it in a terminal."));
    EXPECT_EQ(text(row), package);
    EXPECT_EQ(text(row, Model::KindRole), QStringLiteral("command"));
    EXPECT_EQ(text(row, Model::NoteRole), QStringLiteral("Downloaded packages that are already installed."));
    EXPECT_EQ(text(row, Model::ActionRole), QStringLiteral("sudo apt clean"));
    EXPECT_EQ(text(row, Model::SizeTextRole), QStringLiteral("5.9 MB"));
    EXPECT_EQ(text(row, Model::CountTextRole), QStringLiteral("can be freed"));
    EXPECT_EQ(text(row, Model::DescriptionRole), QStringLiteral("Package cache, sudo apt clean, 5.9 MB can be freed"));
    EXPECT_EQ(store.safeCleanupTotal(), 3'000'000);
}

TEST_F(LinuxCleanupListTest, ACommandOfWhichTheSizeIsNotKnownSaysNone)
{
    fake.files.addFile("/usr/bin/docker", 1);
    fake.files.addFolder("/var/lib/docker");
    store.refreshCleanup();
    store.finishCleanupCommands(
        {{.id = "docker", .title = "Unused container images", .command = "sudo docker system prune"}},
        store.cleanupCommandsToken());
    const int row = model.rowCount() - 1;
    EXPECT_EQ(text(row - 1, Model::SizeTextRole), QString());
    EXPECT_EQ(text(row, Model::SizeTextRole), QString());
    EXPECT_EQ(text(row, Model::CountTextRole), QString());
    EXPECT_EQ(text(row, Model::DescriptionRole), QStringLiteral("Unused container images, sudo docker system prune"));
    waitForMeasurement();
}

TEST_F(LinuxCleanupListTest, ACommandIsCopiedAndNeverSelected)
{
    addPackageCache(5'000);
    measureWithCommands(1);
    const int row = model.rowCount() - 1;
    model.activate(row);
    EXPECT_EQ(model.clipboard()->copied(), QStringLiteral("sudo apt clean"));
    model.toggle(row);
    model.selectAll();
    EXPECT_TRUE(store.selection().empty());
    EXPECT_FALSE(data(row, Model::CheckableRole).toBool());
}

} // namespace
} // namespace corvane
