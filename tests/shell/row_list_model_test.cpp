#include "shell/ui/row_list_model.h"

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace corvane {
namespace {

struct Row {
    int key = 0;
    int content = 0;

    friend bool operator==(const Row &, const Row &) = default;
};

class Rows : public RowListModel {
public:
    using RowListModel::announce;

    void show(std::vector<Row> rows) { setRows(m_rows, std::move(rows), &Row::key, {Qt::DisplayRole}); }
    void showInPlace(std::vector<Row> rows) { setRowsInPlace(m_rows, std::move(rows)); }
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        return index.isValid() && role == Qt::DisplayRole ? m_rows[static_cast<std::size_t>(index.row())].key
                                                          : QVariant();
    }

private:
    std::vector<Row> m_rows;
};

class RowListModelTest : public testing::Test {
protected:
    static std::vector<Row> withKeys(int first, int end, int step = 1)
    {
        std::vector<Row> rows;
        for (int key = first; key < end; key += step)
            rows.push_back({key});
        return rows;
    }
    [[nodiscard]] qsizetype signalCount() const
    {
        return inserted.count() + removed.count() + moved.count() + changed.count() + laidOut.count() + reset.count();
    }
    /// A persistent index of each row, keyed by the row's key.
    [[nodiscard]] std::map<int, QPersistentModelIndex> held() const
    {
        std::map<int, QPersistentModelIndex> indexes;
        for (std::size_t i = 0; i < model.rows().size(); ++i)
            indexes.emplace(model.rows()[i].key, model.index(static_cast<int>(i)));
        return indexes;
    }
    /// Expects each index to refer to its original row, or to be invalid if that row is gone.
    void expectRight(const std::map<int, QPersistentModelIndex> &indexes) const
    {
        for (const auto &[key, index] : indexes) {
            const auto row = std::ranges::find(model.rows(), key, &Row::key);
            const int place = row == model.rows().end() ? -1 : static_cast<int>(row - model.rows().begin());
            ASSERT_EQ(index.row(), place) << key;
        }
    }

    Rows model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy moved{&model, &QAbstractItemModel::rowsMoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy laidOut{&model, &QAbstractItemModel::layoutChanged};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
};

TEST_F(RowListModelTest, EqualRowsAnnounceNothing)
{
    model.show({{1, 5}, {2, 6}});
    const qsizetype before = signalCount();
    model.show({{1, 5}, {2, 6}});
    EXPECT_EQ(signalCount(), before);
}

TEST_F(RowListModelTest, ChangedNeighboursAreAnnouncedTogether)
{
    model.show(withKeys(0, 6));
    model.show({{0}, {1, 7}, {2, 7}, {3}, {4, 7}, {5}});
    ASSERT_EQ(changed.count(), 2);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
    EXPECT_EQ(changed[0][2].value<QList<int>>(), QList<int>{Qt::DisplayRole});
    EXPECT_EQ(changed[1][0].toModelIndex().row(), 4);
    EXPECT_EQ(model.rows()[2].content, 7);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(removed.count() + moved.count(), 0);
}

TEST_F(RowListModelTest, AMovedAndChangedRowIsOneMoveAndOneChange)
{
    model.show(withKeys(0, 5));
    const auto indexes = held();
    model.show({{4, 9}, {0}, {1}, {2}, {3}});
    EXPECT_EQ(moved.count(), 1);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0) << "where the row is by then";
    EXPECT_EQ(signalCount(), 3);
    expectRight(indexes);
}

TEST_F(RowListModelTest, RowsInPlaceChangeComeAndGoAtTheEnd)
{
    model.showInPlace({{1}, {2}, {3}});
    model.showInPlace({{2}, {2}});
    EXPECT_EQ(removed.count(), 1);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(RowListModelTest, PersistentIndexesFollowTheirRows)
{
    std::mt19937 random(20240918); // NOLINT: fixed seed for reproducible lists
    std::vector<Row> rows = withKeys(0, 40);
    for (int i = 0; i < 2'000; ++i) {
        std::ranges::shuffle(rows, random);
        std::vector<Row> shown(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(random() % rows.size()));
        if (random() % 2 == 0)
            std::ranges::sort(shown, {}, &Row::key);
        for (Row &row : shown)
            row.content = static_cast<int>(random() % 2);
        const auto indexes = held();
        model.show(shown);
        ASSERT_EQ(model.rows(), shown);
        expectRight(indexes);
    }
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(RowListModelTest, AChangeOfVeryManyStepsIsOneNewLayout)
{
    constexpr int many = 4 * static_cast<int>(Rows::mostSteps);
    model.show(withKeys(0, many));
    const auto indexes = held();
    const qsizetype before = signalCount();
    // Remove every second row, insert as many others, and reverse the order.
    std::vector<Row> rows = withKeys(0, many, 2);
    for (const Row &row : withKeys(many, 2 * many, 2))
        rows.push_back(row);
    std::ranges::sort(rows, std::ranges::greater(), [](const Row &row) { return row.key % many; });
    rows[3].content = 1;
    rows[4].content = 1;
    model.show(rows);
    EXPECT_EQ(model.rows(), rows);
    EXPECT_EQ(laidOut.count(), 1);
    EXPECT_LE(signalCount() - before, 4);
    EXPECT_EQ(reset.count(), 0);
    expectRight(indexes);
}

TEST_F(RowListModelTest, OneStepFewerIsDoneStepByStep)
{
    const int rowsAtFirst = 2 * static_cast<int>(Rows::mostSteps);
    model.show(withKeys(0, rowsAtFirst));
    model.show(withKeys(0, rowsAtFirst, 2));
    EXPECT_EQ(laidOut.count(), 0);
    EXPECT_EQ(removed.count(), static_cast<qsizetype>(Rows::mostSteps));
}

TEST_F(RowListModelTest, VeryManyScatteredChangesAreOneStretch)
{
    constexpr int many = 4 * static_cast<int>(Rows::mostSteps);
    model.show(withKeys(0, many));
    std::vector<int> scattered;
    for (int row = 1; row < many; row += 2)
        scattered.push_back(row);
    model.announce(scattered, {});
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), many - 1);
    model.announce({}, {});
    EXPECT_EQ(changed.count(), 1);
}

} // namespace
} // namespace corvane
