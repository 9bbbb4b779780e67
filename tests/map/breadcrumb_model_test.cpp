#include "map/ui/breadcrumb_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "map/explorer_fixture.h"

namespace corvane {
namespace {

class BreadcrumbModelTest : public test::ExplorerFixture {
protected:
    BreadcrumbModelTest()
    {
        addFile("Projects/harbor-app/build/products/release/a.o", 3'000'000);
        addFile("Films/a.mov", 2'000'000);
    }

    [[nodiscard]] QStringList names() const
    {
        QStringList result;
        for (int row = 0; row < model.rowCount(); ++row)
            result << data(row, BreadcrumbModel::NameRole).toString();
        return result;
    }
    [[nodiscard]] QVariant data(int row, int role) const { return model.data(model.index(row), role); }
    [[nodiscard]] double usedWidth() const
    {
        double width = 0;
        int shown = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (data(row, BreadcrumbModel::CollapsedRole).toBool())
                continue;
            width += data(row, BreadcrumbModel::WidthRole).toDouble();
            ++shown;
        }
        return width + 20 * (shown - 1); // a caret of 12 with 4 on each side
    }

    BreadcrumbModel model{store};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

const QString deep = QStringLiteral("Projects/harbor-app/build/products/release");

TEST_F(BreadcrumbModelTest, BeforeAScanThereIsNoCrumb)
{
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(BreadcrumbModelTest, AtTheRootThereIsOneCrumb)
{
    scanHome();
    EXPECT_EQ(names(), QStringList{"studio"});
    EXPECT_TRUE(data(0, BreadcrumbModel::CurrentRole).toBool());
}

TEST_F(BreadcrumbModelTest, ThereIsOneCrumbForEachFolderOnTheWay)
{
    scanHome();
    open(deep.toStdString());
    EXPECT_EQ(names(), QStringList({"studio", "Projects", "harbor-app", "build", "products", "release"}));
    EXPECT_FALSE(data(0, BreadcrumbModel::CurrentRole).toBool());
    EXPECT_TRUE(data(5, BreadcrumbModel::CurrentRole).toBool());
}

TEST_F(BreadcrumbModelTest, CommonCrumbsStayWhereTheyAre)
{
    scanHome();
    open("Projects/harbor-app");
    const QSignalSpy removed(&model, &BreadcrumbModel::rowsRemoved);
    const QSignalSpy inserted(&model, &BreadcrumbModel::rowsInserted);
    const QSignalSpy reset(&model, &BreadcrumbModel::modelReset);
    open("Films");
    EXPECT_EQ(names(), QStringList({"studio", "Films"}));
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed[0][1].toInt(), 1);
    EXPECT_EQ(removed[0][2].toInt(), 2);
    ASSERT_EQ(inserted.count(), 1);
    EXPECT_EQ(inserted[0][1].toInt(), 1);
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(BreadcrumbModelTest, OpeningACrumbShowsItsFolder)
{
    scanHome();
    open(deep.toStdString());
    model.open(1);
    EXPECT_EQ(store.currentFolder(), node("Projects"));
    model.open(0);
    EXPECT_EQ(store.currentFolder(), store.root());
    model.open(9);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(BreadcrumbModelTest, TheHomeTheDiskAndOtherFoldersHaveTheirIcons)
{
    scanHome();
    EXPECT_EQ(data(0, BreadcrumbModel::IconRole).toString(), QStringLiteral("house"));
    open("Films");
    EXPECT_EQ(data(1, BreadcrumbModel::IconRole).toString(), QString());
    scan(at("Films"));
    EXPECT_EQ(data(0, BreadcrumbModel::IconRole).toString(), QStringLiteral("folder"));
    scan("/");
    EXPECT_EQ(data(0, BreadcrumbModel::IconRole).toString(), QStringLiteral("hard-drive"));
}

TEST_F(BreadcrumbModelTest, WhereThereIsRoomNothingCollapses)
{
    scanHome();
    open(deep.toStdString());
    model.setAvailableWidth(1000);
    EXPECT_TRUE(model.collapsedNames().isEmpty());
    EXPECT_LE(usedWidth(), 1000);
}

TEST_F(BreadcrumbModelTest, WhereThereIsLittleRoomTheMiddleCollapses)
{
    scanHome();
    open(deep.toStdString());
    model.setAvailableWidth(300);
    const QStringList collapsed = model.collapsedNames();
    ASSERT_FALSE(collapsed.isEmpty());
    EXPECT_EQ(collapsed.first(), QStringLiteral("Projects"));
    EXPECT_FALSE(data(0, BreadcrumbModel::CollapsedRole).toBool());
    EXPECT_FALSE(data(5, BreadcrumbModel::CollapsedRole).toBool());
    const int next = static_cast<int>(collapsed.size()) + 1;
    EXPECT_TRUE(data(next, BreadcrumbModel::EllipsisBeforeRole).toBool());
    for (int row = 0; row < model.rowCount(); ++row)
        EXPECT_EQ(data(row, BreadcrumbModel::EllipsisBeforeRole).toBool(), row == next);
    EXPECT_LE(usedWidth(), 300);
}

TEST_F(BreadcrumbModelTest, WhereThereIsNextToNoRoomTheLastCrumbIsShortened)
{
    scanHome();
    open(deep.toStdString());
    model.setAvailableWidth(1000);
    const double whole = data(5, BreadcrumbModel::WidthRole).toDouble();
    ASSERT_GT(whole, 60);
    model.setAvailableWidth(150);
    EXPECT_EQ(model.collapsedNames().size(), 4);
    EXPECT_EQ(data(5, BreadcrumbModel::WidthRole).toDouble(), 60);
    model.setAvailableWidth(1000);
    EXPECT_EQ(data(5, BreadcrumbModel::WidthRole).toDouble(), whole);
    EXPECT_TRUE(model.collapsedNames().isEmpty());
}

TEST_F(BreadcrumbModelTest, ACollapsedFolderCanBeOpened)
{
    scanHome();
    open(deep.toStdString());
    model.setAvailableWidth(150);
    ASSERT_EQ(model.collapsedNames(), QStringList({"Projects", "harbor-app", "build", "products"}));
    EXPECT_EQ(model.collapsedText(), QStringLiteral("4 more folders"));
    model.openCollapsed(1);
    EXPECT_EQ(store.currentFolder(), node("Projects/harbor-app"));
}

TEST_F(BreadcrumbModelTest, CountOfCollapsedFoldersIsGroupedInThousands)
{
    std::string folder = "d";
    for (int level = 1; level < 1'235; ++level)
        folder += "/d";
    addFile(folder + "/a.mov", 2'000'000);
    scanHome();
    open(folder);
    model.setAvailableWidth(150);
    EXPECT_EQ(model.collapsedText(), QStringLiteral("1,234 more folders"));
}

TEST_F(BreadcrumbModelTest, ANewScanReplacesTheCrumbs)
{
    scanHome();
    open("Projects/harbor-app");
    scan(at("Films"));
    EXPECT_EQ(names(), QStringList{"Films"});
}

TEST_F(BreadcrumbModelTest, WhenTheFolderShownIsRemovedTheWayEndsAtWhatContainedIt)
{
    scanHome();
    open("Projects/harbor-app/build");
    removeItem("Projects/harbor-app", 3'000'000);
    EXPECT_EQ(names(), QStringList({"studio", "Projects"}));
}

} // namespace
} // namespace corvane
