#include "overview/ui/overview_rows_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace corvane {
namespace {

class OverviewRowsModelTest : public testing::Test {
protected:
    static std::vector<OverviewRow> rowsNamed(const QStringList &names)
    {
        std::vector<OverviewRow> rows;
        for (const QString &name : names)
            rows.push_back({.id = name, .title = name, .sizeText = QStringLiteral("1 MB")});
        return rows;
    }
    [[nodiscard]] QStringList titles() const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row)
            result << model.data(model.index(row), OverviewRowsModel::TitleRole).toString();
        return result;
    }

    OverviewRowsModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(OverviewRowsModelTest, NewRowsTakeThePlaceOfTheOldOnesWithoutAReset)
{
    const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setRows(rowsNamed({"a", "b", "c"}));
    EXPECT_EQ(titles(), QStringList({"a", "b", "c"}));
    model.setRows(rowsNamed({"a", "x"}));
    EXPECT_EQ(titles(), QStringList({"a", "x"}));
    EXPECT_EQ(changed.count(), 1) << "what stays the same is not announced";
    model.setRows(rowsNamed({"a", "x", "y", "z"}));
    EXPECT_EQ(titles(), QStringList({"a", "x", "y", "z"}));
    model.setRows({});
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(OverviewRowsModelTest, ARowSaysItsTitleAndItsFigures)
{
    auto rows = rowsNamed({"Trash", "Music"});
    rows.front().countText = QStringLiteral("2 items");
    model.setRows(rows);
    const auto text = [&](int row) {
        return model.data(model.index(row), OverviewRowsModel::DescriptionRole).toString();
    };
    EXPECT_EQ(text(0), QStringLiteral("Trash, 1 MB, 2 items"));
    EXPECT_EQ(text(1), QStringLiteral("Music, 1 MB"));
}

} // namespace
} // namespace corvane
