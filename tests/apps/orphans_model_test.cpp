#include "apps/ui/orphans_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "apps/apps_ui_fixture.h"
#include "core/store/qt_words.h"

namespace corvane {
namespace {

using Model = OrphansModel;

class OrphansModelTest : public test::AppsFixture {
protected:
    OrphansModelTest()
    {
        addOrphan("com.lathe.cadpro", "Application Support/com.lathe.cadpro", 4'000'000);
        addOrphan("com.lathe.cadpro", "Caches/com.lathe.cadpro", 2'000'000);
        addOrphan("io.mapleaf.viewer", "Caches/io.mapleaf.viewer", 1'000'000);
        publish();
    }

    [[nodiscard]] QString text(int row, int role = Model::TitleRole) const
    {
        return model.data(model.index(row), role).toString();
    }
    [[nodiscard]] int checkState(int row) const { return model.data(model.index(row), Model::CheckStateRole).toInt(); }

    Model model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(OrphansModelTest, EveryGroupHasItsHeadingAndItsItems)
{
    ASSERT_EQ(model.rowCount(), 5);
    EXPECT_TRUE(model.hasItems());
    EXPECT_EQ(text(0), QStringLiteral("com.lathe.cadpro"));
    EXPECT_EQ(text(0, Model::SizeTextRole), QStringLiteral("6 MB"));
    EXPECT_EQ(text(0, Model::NoteRole), QString());
    EXPECT_EQ(text(1, Model::LocationRole), QStringLiteral("Application Support"));
    EXPECT_EQ(text(3), QStringLiteral("io.mapleaf.viewer"));
    EXPECT_FALSE(model.flags(model.index(3)).testFlag(Qt::ItemIsEnabled));
}

TEST_F(OrphansModelTest, ItemsShowWhenTheyWereLastModified)
{
    const QDateTime when(QDate(2024, 2, 3), QTime(12, 0));
    inventory.orphanGroups[0].items[0].modified = Time{std::chrono::seconds(when.toSecsSinceEpoch())};
    publish();
    EXPECT_EQ(text(1, Model::DateRole), abbreviatedDate(QDate(2024, 2, 3), QLocale()));
    EXPECT_EQ(text(2, Model::DateRole), QString());
}

TEST_F(OrphansModelTest, NothingIsSelectedAtFirst)
{
    EXPECT_TRUE(store.selection().empty());
    for (const int row : {1, 2, 4})
        EXPECT_EQ(checkState(row), Qt::Unchecked) << row;
}

TEST_F(OrphansModelTest, ATickPutsTheItemIntoTheSelectionAndTakesItOut)
{
    model.toggle(2);
    EXPECT_TRUE(store.isSelected(at("Library/Caches/com.lathe.cadpro")));
    EXPECT_EQ(store.selectedTotal(), 2'000'000);
    EXPECT_EQ(checkState(2), Qt::Checked);
    model.toggle(2);
    EXPECT_TRUE(store.selection().empty());
    model.toggle(0);
    EXPECT_TRUE(store.selection().empty());
}

TEST_F(OrphansModelTest, TheTicksFollowTheSelection)
{
    QSignalSpy changes(&model, &Model::dataChanged);
    store.setSelected(at("Library/Caches/io.mapleaf.viewer"), 1'000'000, true);
    EXPECT_FALSE(changes.isEmpty());
    EXPECT_EQ(checkState(4), Qt::Checked);
    store.clearSelection();
    EXPECT_EQ(checkState(4), Qt::Unchecked);
}

TEST_F(OrphansModelTest, SelectAllSelectsEveryItem)
{
    model.select(1);
    model.select(1);
    EXPECT_EQ(store.selectedTotal(), 4'000'000);
    model.selectAll();
    EXPECT_EQ(store.selectedTotal(), 7'000'000);
}

TEST_F(OrphansModelTest, AnItemIsRevealed)
{
    model.reveal(4);
    EXPECT_THAT(fake.log->lines(), testing::Contains("reveal " + at("Library/Caches/io.mapleaf.viewer")));
}

TEST_F(OrphansModelTest, WithNothingLeftBehindItIsEmpty)
{
    QSignalSpy changes(&model, &Model::rowsChanged);
    inventory.orphanGroups.clear();
    publish();
    EXPECT_FALSE(model.hasItems());
    EXPECT_FALSE(changes.isEmpty());
}

TEST_F(OrphansModelTest, ARefreshKeepsTheRowsOfWhatIsStillThere)
{
    const QPersistentModelIndex kept(model.index(4));
    inventory.orphanGroups.erase(inventory.orphanGroups.begin());
    publish();
    EXPECT_EQ(kept.row(), 1);
    EXPECT_TRUE(model.data(kept, Model::StartsBoxRole).toBool());
}

} // namespace
} // namespace corvane
