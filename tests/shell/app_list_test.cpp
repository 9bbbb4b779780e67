#include <functional>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "shell/quick_scene.h"
#include "shell/ui/row_list_model.h"

namespace corvane {
namespace {

class NumberedRows : public RowListModel {
public:
    void show(std::vector<int> numbers) { setRows(m_numbers, std::move(numbers), std::identity()); }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_numbers.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? m_numbers[static_cast<std::size_t>(index.row())] : QVariant();
    }

private:
    std::vector<int> m_numbers;
};

std::vector<int> numbers(int first, int end, int step = 1)
{
    std::vector<int> result;
    for (int number = first; number < end; number += step)
        result.push_back(number);
    return result;
}

/// A list of a hundred rows of 20 points, five of which are visible between margins of 4 points.
class AppListTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
        rows.show(numbers(100, 200));
        list()->setProperty("model", QVariant::fromValue<QAbstractItemModel *>(&rows));
        list()->forceActiveFocus(Qt::TabFocusReason);
        QTest::qWait(0);
    }

    [[nodiscard]] QQuickItem *list() const { return scene.item("list"); }
    [[nodiscard]] int current() const { return list()->property("currentIndex").toInt(); }
    [[nodiscard]] double top() const { return scene.item("view")->property("contentY").toDouble(); }
    /// The indexes of the visible rows, from the top.
    [[nodiscard]] std::vector<int> shown() const
    {
        std::map<double, int> byPlace;
        const QQuickItem *const view = scene.item("view");
        const auto items = view->property("contentItem").value<QQuickItem *>()->childItems();
        for (const QQuickItem *item : items) {
            const double y = item->mapToItem(view, {}).y();
            if (item->isVisible() && item->property("display").isValid() && y > -20 && y < view->height())
                byPlace.emplace(y, item->property("display").toInt());
        }
        std::vector<int> result;
        for (const auto &[y, number] : byPlace)
            result.push_back(number);
        return result;
    }

    NumberedRows rows;
    QuickScene scene{R"(
        AppList {
            id: list
            objectName: "list"
            width: 200; height: 100
            rowHeight: 20
            property int opened: -1
            view.objectName: "view"
            view.topMargin: 4
            view.bottomMargin: 4
            view.cacheBuffer: 0
            keys.onOpenWanted: row => opened = row
            delegate: Rectangle {
                required property int display
                required property int index
                width: list.width; height: 20
                color: ListView.isCurrentItem && list.visualFocus ? "red" : "white"
            }
        })"};
};

TEST_F(AppListTest, TheKeyboardMovesAndBringsTheCurrentRowIntoSight)
{
    EXPECT_EQ(current(), 0);
    EXPECT_TRUE(list()->property("visualFocus").toBool());
    for (int i = 0; i < 5; ++i)
        scene.key(Qt::Key_Down);
    EXPECT_EQ(current(), 5);
    EXPECT_EQ(top(), 20) << "no further than it takes";
    scene.key(Qt::Key_Up);
    EXPECT_EQ(top(), 20) << "it is in sight";
}

TEST_F(AppListTest, TheEndsAreShownWithTheirMargins)
{
    scene.key(Qt::Key_End);
    EXPECT_EQ(current(), 99);
    EXPECT_EQ(top(), 100 * 20 + 4 - 100);
    scene.key(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
    EXPECT_EQ(top(), -4);
}

TEST_F(AppListTest, ThePageKeysMoveByAsManyRowsAsAreSeen)
{
    scene.key(Qt::Key_PageDown);
    EXPECT_EQ(current(), 5);
    scene.key(Qt::Key_PageUp);
    EXPECT_EQ(current(), 0);
}

TEST_F(AppListTest, AListAsHighAsItsRowsLeavesThePageKeysToItsPage)
{
    scene.item("view")->setProperty("interactive", false);
    scene.key(Qt::Key_PageDown);
    EXPECT_EQ(current(), 0);
    scene.key(Qt::Key_Down);
    EXPECT_EQ(current(), 1);
}

TEST_F(AppListTest, TypingFinds)
{
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_5, Qt::Key_7})
        scene.key(key);
    EXPECT_EQ(current(), 57);
}

TEST_F(AppListTest, OnlyKeysWithAFunctionAreAccepted)
{
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(list()->property("opened").toInt(), 1);
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(list(), &space);
    EXPECT_FALSE(space.isAccepted());
}

TEST_F(AppListTest, ThePointerTakesTheRowWithoutARing)
{
    QMetaObject::invokeMethod(list(), "point", Q_ARG(int, 3));
    EXPECT_EQ(current(), 3);
    EXPECT_TRUE(list()->hasActiveFocus());
    EXPECT_FALSE(list()->property("visualFocus").toBool());
}

TEST_F(AppListTest, AChangeOfVeryManyRowsShowsTheRightOnes)
{
    ASSERT_EQ(shown(), numbers(100, 105));
    rows.show(numbers(0, 4'000));
    QTest::qWait(0);
    rows.show(numbers(1, 4'000, 2));
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown().size() == 5; }));
    EXPECT_EQ(scene.item("view")->property("count").toInt(), 2'000);
    QMetaObject::invokeMethod(list(), "goTo", Q_ARG(int, 0));
    ASSERT_TRUE(QTest::qWaitFor([this] { return shown() == numbers(1, 11, 2); }));
}

} // namespace
} // namespace corvane
