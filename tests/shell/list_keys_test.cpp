#include "shell/ui/list_keys.h"

#include <vector>

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QStringListModel>

#include "shell/ui/keyboard_item.h"

namespace corvane {
namespace {

/// "Header", "b", "Header", "d", "e": the headers are not enabled.
class Rows : public QStringListModel {
public:
    Rows()
        : QStringListModel({QStringLiteral("Header"), QStringLiteral("b"), QStringLiteral("Header"),
                            QStringLiteral("d"), QStringLiteral("e")})
    {
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return index.data().toString() == QStringLiteral("Header") ? Qt::ItemFlags(Qt::NoItemFlags)
                                                                   : QStringListModel::flags(index);
    }
};

class ListKeysTest : public testing::Test {
protected:
    ListKeysTest()
    {
        keys.setTarget(&item);
        keys.setModel(&rows);
        keys.setProperty("page", 2);
        QObject::connect(&keys, &ListKeys::moved, [this](int row) { moves.push_back(row); });
    }
    /// The row that the key moves to; -2 if the key is not handled.
    int after(Qt::Key key, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = {})
    {
        moves.clear();
        keys.setProperty("current", row);
        if (!press(key, modifiers, text))
            return -2;
        return moves.empty() ? -1 : moves.back();
    }
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        event.ignore();
        QCoreApplication::sendEvent(&item, &event);
        return event.isAccepted();
    }

    Rows rows;
    KeyboardItem item;
    ListKeys keys;
    std::vector<int> moves;
};

TEST_F(ListKeysTest, TheArrowsPassWhatIsNoStopAndEndAtTheEnds)
{
    EXPECT_EQ(after(Qt::Key_Down, 1), 3);
    EXPECT_EQ(after(Qt::Key_Up, 3), 1);
    EXPECT_EQ(after(Qt::Key_Up, 1), 1);
    EXPECT_EQ(after(Qt::Key_Down, 4), 4);
    EXPECT_EQ(after(Qt::Key_Home, 4), 1);
    EXPECT_EQ(after(Qt::Key_End, 1), 4);
    EXPECT_EQ(keys.firstRow(), 1);
    EXPECT_EQ(keys.lastRow(), 4);
}

TEST_F(ListKeysTest, PagesAreThoseOfTheViewOrSomebodyElses)
{
    EXPECT_EQ(after(Qt::Key_PageDown, 1), 3);
    EXPECT_EQ(after(Qt::Key_PageDown, 4), 4);
    EXPECT_EQ(after(Qt::Key_PageUp, 4), 1) << "two rows up there is no stop";
    keys.setProperty("page", 0);
    EXPECT_EQ(after(Qt::Key_PageDown, 1), -2);
}

TEST_F(ListKeysTest, ALastRowThatIsNoStopIsNotReached)
{
    rows.setStringList({QStringLiteral("a"), QStringLiteral("Header")});
    EXPECT_EQ(after(Qt::Key_End, 0), 0);
    EXPECT_EQ(after(Qt::Key_Down, 0), 0);
}

TEST_F(ListKeysTest, WithoutStopsNoKeyLeadsAnywhere)
{
    rows.setStringList({QStringLiteral("Header")});
    EXPECT_EQ(after(Qt::Key_Down, -1), -2);
    rows.setStringList({});
    EXPECT_EQ(after(Qt::Key_Down, -1), -2);
    EXPECT_EQ(keys.firstRow(), -1);
}

TEST_F(ListKeysTest, TypingFindsARowButNoHeader)
{
    EXPECT_EQ(after(Qt::Key_E, 1, Qt::NoModifier, QStringLiteral("e")), 4);
    EXPECT_EQ(after(Qt::Key_H, 1, Qt::NoModifier, QStringLiteral("h")), -1);
}

TEST_F(ListKeysTest, KeysWithoutAListenerArePassedOn)
{
    keys.setProperty("current", 1);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Menu, Qt::Key_Backspace})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(press(Qt::Key_A, Qt::ControlModifier));
    EXPECT_FALSE(item.property("visualFocus").toBool());
}

TEST_F(ListKeysTest, EachKeySaysWhatIsWantedOfTheCurrentRow)
{
    keys.setProperty("current", 3);
    QSignalSpy toggle(&keys, &ListKeys::toggleWanted);
    QSignalSpy select(&keys, &ListKeys::selectWanted);
    QSignalSpy open(&keys, &ListKeys::openWanted);
    QSignalSpy menu(&keys, &ListKeys::menuWanted);
    QSignalSpy all(&keys, &ListKeys::selectAllWanted);
    QSignalSpy up(&keys, &ListKeys::upWanted);

    EXPECT_TRUE(press(Qt::Key_Space));
    EXPECT_TRUE(press(Qt::Key_Delete));
    EXPECT_TRUE(press(Qt::Key_Return));
    EXPECT_TRUE(press(Qt::Key_Enter, Qt::KeypadModifier));
    EXPECT_TRUE(press(Qt::Key_Menu));
    EXPECT_TRUE(press(Qt::Key_F10, Qt::ShiftModifier));
    EXPECT_TRUE(press(Qt::Key_A, Qt::ControlModifier));
    EXPECT_TRUE(press(Qt::Key_Backspace));
    EXPECT_FALSE(press(Qt::Key_Space, Qt::ControlModifier));
    EXPECT_FALSE(press(Qt::Key_Delete, Qt::ShiftModifier));

    EXPECT_EQ(toggle.count(), 1);
    EXPECT_EQ(select.count(), 1);
    EXPECT_EQ(open.count(), 2);
    EXPECT_EQ(menu.count(), 2);
    EXPECT_EQ(all.count(), 1);
    EXPECT_EQ(up.count(), 1);
    EXPECT_EQ(toggle.first().first().toInt(), 3);
    EXPECT_TRUE(moves.empty());
}

TEST_F(ListKeysTest, ShiftWithAKeyThatMovesReachesThere)
{
    std::vector<int> reached;
    EXPECT_EQ(after(Qt::Key_Down, 1, Qt::ShiftModifier), -2) << "nobody listens";
    QObject::connect(&keys, &ListKeys::extendWanted, [&](int row) { reached.push_back(row); });
    EXPECT_EQ(after(Qt::Key_Down, 1, Qt::ShiftModifier), -1);
    EXPECT_EQ(after(Qt::Key_Home, 4, Qt::ShiftModifier), -1);
    EXPECT_EQ(after(Qt::Key_PageDown, 1, Qt::ShiftModifier), -1);
    EXPECT_THAT(reached, testing::ElementsAre(3, 1, 3));
    EXPECT_EQ(after(Qt::Key_Left, 1, Qt::ShiftModifier), -2);
    keys.setProperty("navigates", false);
    EXPECT_EQ(after(Qt::Key_Down, 1, Qt::ShiftModifier), -2);
}

TEST_F(ListKeysTest, ABarOfOneLineLeavesTheArrowsToItsOwner)
{
    keys.setProperty("navigates", false);
    EXPECT_EQ(after(Qt::Key_Down, 1), -2);
    EXPECT_EQ(after(Qt::Key_End, 1), -2);
    EXPECT_EQ(after(Qt::Key_E, 1, Qt::NoModifier, QStringLiteral("e")), 4);
}

} // namespace
} // namespace corvane
