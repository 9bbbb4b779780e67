#include "apps/ui/app_list_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace corvane {
namespace {

using Model = AppListModel;

class AppListModelTest : public testing::Test {
protected:
    void setApps(const std::vector<std::pair<std::string, std::int64_t>> &apps)
    {
        std::vector<InstalledApp> made;
        for (const auto &[name, size] : apps) {
            InstalledApp app;
            app.path = "/Applications/" + name + ".app";
            app.name = name;
            app.bundleID = "org.example." + name;
            app.appSize = size;
            made.push_back(std::move(app));
        }
        model.setRows(AppRow::ofOrphans({}, 0), AppRows(made, Time{}, systemCalendar()));
    }
    void choose(const std::string &name)
    {
        model.setChoice(Model::Choice{AppRow::Kind::app, "/Applications/" + name + ".app"});
    }
    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] QString names() const
    {
        QStringList result;
        for (int row = 1; row < model.rowCount(); ++row)
            result << data(row, Model::NameRole).toString();
        return result.join(QLatin1Char(' '));
    }

    Model model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(AppListModelTest, TheOrphansStandOnTopInEveryOrderAndSearch)
{
    setApps({{"Alpha", 1}, {"Beta", 2}});
    for (int sort = 0; sort < model.sorts().size(); ++sort) {
        model.setSort(sort);
        EXPECT_TRUE(data(0, Model::OrphansRole).toBool());
        EXPECT_FALSE(data(1, Model::OrphansRole).toBool());
    }
    model.setSearch(QStringLiteral("nothing has this"));
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_TRUE(data(0, Model::OrphansRole).toBool());
}

TEST_F(AppListModelTest, SortsBySizeAtFirstAndByWhateverIsAskedThen)
{
    setApps({{"Alpha", 1}, {"Beta", 3}, {"Gamma", 2}});
    EXPECT_EQ(model.sorts().at(model.sort()), QStringLiteral("Size"));
    EXPECT_EQ(names(), QStringLiteral("Beta Gamma Alpha"));
    model.setSort(0);
    EXPECT_EQ(names(), QStringLiteral("Alpha Beta Gamma"));
    model.setSort(7);
    EXPECT_EQ(names(), QStringLiteral("Alpha Beta Gamma")) << "there is no such order";
}

TEST_F(AppListModelTest, TheSearchNarrowsTheListAndItsEndBringsItBack)
{
    setApps({{"Alpha", 1}, {"Beta", 3}});
    model.setSearch(QStringLiteral("BET"));
    EXPECT_EQ(names(), QStringLiteral("Beta"));
    EXPECT_EQ(model.emptyText(), QString());
    model.setSearch(QStringLiteral("xyz"));
    EXPECT_EQ(model.emptyText(), QStringLiteral("No apps match “xyz”"));
    model.setSearch({});
    EXPECT_EQ(names(), QStringLiteral("Beta Alpha"));
}

TEST_F(AppListModelTest, WithoutAnyAppItSaysSo)
{
    EXPECT_EQ(model.emptyText(), QStringLiteral("No apps found"));
}

TEST_F(AppListModelTest, TheChosenRowStaysTheChosenOneThroughSortSearchAndRefresh)
{
    setApps({{"Alpha", 1}, {"Beta", 3}, {"Gamma", 2}});
    choose("Alpha");
    EXPECT_EQ(model.chosenRow(), 3);
    EXPECT_TRUE(data(3, Model::ChosenRole).toBool());
    model.setSort(0);
    EXPECT_EQ(model.chosenRow(), 1);
    EXPECT_TRUE(data(1, Model::ChosenRole).toBool());
    model.setSearch(QStringLiteral("beta"));
    EXPECT_EQ(model.chosenRow(), -1);
    model.setSearch({});
    EXPECT_EQ(model.chosenRow(), 1);
    setApps({{"Aaa", 1}, {"Alpha", 9}});
    EXPECT_EQ(model.chosenRow(), 2);
}

TEST_F(AppListModelTest, AnotherChoiceIsAnnouncedForBothRows)
{
    setApps({{"Alpha", 1}, {"Beta", 3}});
    choose("Alpha");
    QSignalSpy changes(&model, &Model::dataChanged);
    choose("Beta");
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(changes[1][0].toModelIndex().row(), 1);
    model.setChoice(Model::Choice{AppRow::Kind::orphans, {}});
    EXPECT_EQ(model.chosenRow(), 0);
    model.setChoice(std::nullopt);
    EXPECT_EQ(model.chosenRow(), -1);
}

TEST_F(AppListModelTest, AnotherOrderMovesRowsAndRecreatesNone)
{
    setApps({{"Alpha", 1}, {"Beta", 3}, {"Gamma", 2}});
    QSignalSpy resets(&model, &Model::modelReset);
    QSignalSpy removals(&model, &Model::rowsRemoved);
    const QPersistentModelIndex alpha(model.index(3));
    model.setSort(0);
    EXPECT_EQ(alpha.row(), 1);
    EXPECT_TRUE(resets.isEmpty());
    EXPECT_TRUE(removals.isEmpty());
}

TEST_F(AppListModelTest, FiveHundredAppsKeepTheirRowsThroughASort)
{
    std::vector<std::pair<std::string, std::int64_t>> apps;
    for (int i = 0; i < 500; ++i)
        apps.emplace_back("App " + std::to_string(i), (i * 7919) % 500);
    setApps(apps);
    const QPersistentModelIndex largest(model.index(1));
    const QString name = data(1, Model::NameRole).toString();
    model.setSort(0);
    EXPECT_EQ(data(largest.row(), Model::NameRole).toString(), name);
    EXPECT_EQ(model.rowCount(), 501);
}

TEST_F(AppListModelTest, RowsThatDoNotExistStandForNothing)
{
    EXPECT_EQ(model.choiceAt(-1), std::nullopt);
    EXPECT_EQ(model.choiceAt(1), std::nullopt);
    EXPECT_EQ(model.choiceAt(0), (Model::Choice{AppRow::Kind::orphans, {}}));
}

} // namespace
} // namespace corvane
