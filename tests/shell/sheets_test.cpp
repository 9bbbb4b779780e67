#include <gtest/gtest.h>

#include "shell/quick_scene.h"

namespace corvane {
namespace {

constexpr auto alert = R"(
    property int yes: 0
    property int no: 0
    property bool hard: false
    property bool works: false
    PushButton { objectName: "before"; text: "Reveal" }
    PushButton { objectName: "outside"; text: "Review"; enabled: !works }
    Alert {
        objectName: "alert"
        title: "Permanently delete 9 items?"
        message: "These items will be erased immediately and can't be recovered from the Trash."
        confirmText: "Delete 57.32 GB Permanently"
        destructive: hard
        onConfirmed: ++yes
        onCancelled: ++no
    }
)";

class AlertTest : public testing::Test {
protected:
    /// Opens the alert while the button outside it has the focus.
    void open(bool destructive)
    {
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
        scene.window()->setProperty("hard", destructive);
        scene.item("outside")->forceActiveFocus(Qt::TabFocusReason);
        QMetaObject::invokeMethod(scene.object("alert"), "open");
        ASSERT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("alert"); }));
    }
    [[nodiscard]] int count(const char *name) const { return scene.window()->property(name).toInt(); }
    [[nodiscard]] bool isClosed() const
    {
        return QTest::qWaitFor([this] { return !scene.object("alert")->property("visible").toBool(); });
    }
    [[nodiscard]] QString focusedText() const { return scene.window()->activeFocusItem()->property("text").toString(); }

    QuickScene scene{alert};
};

TEST_F(AlertTest, ReturnConfirmsWhatCanBeUndone)
{
    open(false);
    EXPECT_EQ(focusedText(), QStringLiteral("Delete 57.32 GB Permanently"));
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(count("yes"), 1);
    EXPECT_EQ(count("no"), 0);
}

TEST_F(AlertTest, ReturnCancelsWhatCannotBeUndone)
{
    open(true);
    EXPECT_EQ(focusedText(), QStringLiteral("Cancel"));
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(count("yes"), 0);
    EXPECT_EQ(count("no"), 1);
}

TEST_F(AlertTest, ReturnCancelsEvenOnTheButtonThatCannotBeUndone)
{
    open(true);
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focusedText(), QStringLiteral("Delete 57.32 GB Permanently"));
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(count("yes"), 0);
    EXPECT_EQ(count("no"), 1);
}

TEST_F(AlertTest, SpacePressesTheButtonThatCannotBeUndone)
{
    open(true);
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Space);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(count("yes"), 1);
    EXPECT_EQ(count("no"), 0);
}

TEST_F(AlertTest, EscapeCancels)
{
    open(false);
    scene.key(Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(count("yes"), 0);
    EXPECT_EQ(count("no"), 1);
}

TEST_F(AlertTest, TabStaysInside)
{
    open(true);
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focusedText(), QStringLiteral("Delete 57.32 GB Permanently"));
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(focusedText(), QStringLiteral("Cancel"));
    scene.key(Qt::Key_Backtab);
    EXPECT_EQ(focusedText(), QStringLiteral("Delete 57.32 GB Permanently"));
}

TEST_F(AlertTest, KeyboardIsBackWhereItWasAfterwards)
{
    open(true);
    scene.key(Qt::Key_Escape);
    EXPECT_TRUE(isClosed());
    EXPECT_EQ(scene.window()->activeFocusItem(), scene.item("outside"));
}

TEST_F(AlertTest, WhereTheAnswerDisablesTheControlTheKeyboardGoesToTheOneBeforeIt)
{
    open(false);
    scene.window()->setProperty("works", true);
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(scene.item("before")->hasActiveFocus());
}

TEST_F(AlertTest, ClickOutsideDoesNothing)
{
    open(true);
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 395));
    scene.click(scene.item("outside"));
    EXPECT_TRUE(scene.isOpen("alert"));
    EXPECT_EQ(count("no"), 0);
}

TEST_F(AlertTest, StandsInTheMiddleAndALittleHigh)
{
    open(true);
    const QObject *const sheet = scene.object("alert");
    const double width = sheet->property("width").toDouble();
    const double height = sheet->property("height").toDouble();
    EXPECT_DOUBLE_EQ(width, 420);
    EXPECT_GT(height, 100);
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet->property("rise").toDouble() == 0; }));
    EXPECT_NEAR(sheet->property("x").toDouble() + width / 2, 300, 1);
    EXPECT_NEAR(sheet->property("y").toDouble() + height / 2, 0.46 * 400, 1);
}

TEST_F(AlertTest, SaysItsQuestion)
{
    open(true);
    bool found = false;
    for (QQuickItem *const item : scene.window()->findChildren<QQuickItem *>()) {
        if (QuickScene::accessibleRole(item) == QAccessible::AlertMessage)
            found = QuickScene::accessibleName(item) == QStringLiteral("Permanently delete 9 items?");
    }
    EXPECT_TRUE(found);
}

TEST(AlertWithThreeAnswers, OfWhichTheDefaultIsNotToAct)
{
    const QuickScene scene(R"(
        property string answer
        Alert {
            objectName: "alert"
            title: "Send?"; message: "It leaves the machine."
            confirmText: "Send"; otherText: "Always Send"; cancelText: "Don't Send"
            otherName: "other"
            cautious: true
            onConfirmed: answer = "send"
            onOtherChosen: answer = "always"
            onCancelled: answer = "no"
        }
    )");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QObject *const question = scene.object("alert");
    const auto ask = [&](const std::function<void()> &answer) {
        QMetaObject::invokeMethod(question, "open");
        EXPECT_TRUE(QTest::qWaitFor([&] { return question->property("opened").toBool(); }));
        answer();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !question->property("visible").toBool(); }));
        return scene.window()->property("answer").toString();
    };
    EXPECT_EQ(ask([&] { scene.key(Qt::Key_Return); }), QStringLiteral("no"));
    EXPECT_EQ(ask([&] {
                  scene.key(Qt::Key_Tab);
                  scene.key(Qt::Key_Return);
              }),
              QStringLiteral("send"));
    EXPECT_EQ(ask([&] { scene.click(scene.item("other")); }), QStringLiteral("always"));
    EXPECT_EQ(ask([&] { scene.key(Qt::Key_Escape); }), QStringLiteral("no"));
}

TEST(Sheet, InnerEscapeClosesOnlyTheUpperOfTwo)
{
    const QuickScene scene(R"(
        Sheet {
            objectName: "lower"
            title: "Selected for removal"
            width: 400; height: 300
            PushButton { text: "Cancel"; focus: true }
        }
        Alert { objectName: "upper"; title: "Sure?"; confirmText: "Yes"; nested: true }
    )");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QObject *const lower = scene.object("lower");
    QObject *const upper = scene.object("upper");
    QMetaObject::invokeMethod(lower, "open");
    ASSERT_TRUE(QTest::qWaitFor([&] { return lower->property("opened").toBool(); }));
    QMetaObject::invokeMethod(upper, "open");
    ASSERT_TRUE(QTest::qWaitFor([&] { return upper->property("opened").toBool(); }));

    scene.key(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !upper->property("visible").toBool(); }));
    EXPECT_TRUE(lower->property("opened").toBool());
    scene.key(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !lower->property("visible").toBool(); }));
}

} // namespace
} // namespace corvane
