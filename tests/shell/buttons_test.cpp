#include <gtest/gtest.h>

#include "shell/quick_scene.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

constexpr auto countingButtons = R"(
    property int presses: 0
    Row {
        PushButton { objectName: "push"; text: "Review"; onClicked: ++presses }
        PillButton { objectName: "pill"; text: "Open Cleanup"; onClicked: ++presses }
        PushButton { objectName: "disabled"; text: "Clear"; enabled: false; onClicked: ++presses }
    }
)";

int presses(const QuickScene &scene)
{
    return scene.window()->property("presses").toInt();
}

QQuickItem *focusRing(QQuickItem *control)
{
    for (QQuickItem *const child : control->childItems())
        if (QByteArrayView(child->metaObject()->className()).startsWith("FocusRing"))
            return child;
    return nullptr;
}

TEST(Buttons, SpaceAndReturnAndTheMousePressThem)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    int expected = 0;
    for (const char *const name : {"push", "pill"}) {
        scene.item(name)->forceActiveFocus(Qt::TabFocusReason);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            scene.key(key);
            EXPECT_EQ(presses(scene), ++expected) << name << " by " << key;
        }
        scene.click(scene.item(name));
        EXPECT_EQ(presses(scene), ++expected) << name;
    }
}

TEST(Buttons, DisabledButtonCannotBePressed)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.click(scene.item("disabled"));
    EXPECT_EQ(presses(scene), 0);
}

TEST(Buttons, SayWhatTheyAreAndCanBePressedByAssistants)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(scene.item("push")), QAccessible::Button);
    EXPECT_EQ(QuickScene::accessibleName(scene.item("push")), QStringLiteral("Review"));
    EXPECT_EQ(QuickScene::accessibleName(scene.item("pill")), QStringLiteral("Open Cleanup"));

    QuickScene::accessible(scene.item("push"))->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(presses(scene), 1);
}

TEST(Buttons, FocusRingAppearsOnlyForTheKeyboard)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const push = scene.item("push");
    ASSERT_NE(focusRing(push), nullptr);

    scene.click(push);
    EXPECT_TRUE(push->hasActiveFocus());
    EXPECT_FALSE(focusRing(push)->isVisible());

    scene.key(Qt::Key_Tab);
    QQuickItem *const pill = scene.item("pill");
    EXPECT_TRUE(pill->hasActiveFocus());
    EXPECT_TRUE(focusRing(pill)->isVisible());
}

TEST(Buttons, TabSkipsDisabledOnes)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.item("pill")->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(scene.item("push")->hasActiveFocus());
}

TEST(Buttons, HeldKeyPressesOnce)
{
    const QuickScene scene(countingButtons);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.item("push")->forceActiveFocus(Qt::TabFocusReason);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(scene.window(), &first);
    QCoreApplication::sendEvent(scene.window(), &repeated);
    EXPECT_EQ(presses(scene), 1);
}

// --- SelectToggle

constexpr auto toggles = R"(
    property int toggles: 0
    property int shown: Qt.Unchecked
    property bool locked: false
    Item {
        width: 30
        height: 28
        SelectToggle {
            objectName: "toggle"
            anchors.fill: parent
            accessibleName: "film.mov"
            checkState: shown
            protectedPlace: locked
            reason: "macOS needs this folder."
            onToggled: ++toggles
        }
    }
)";

int toggleCount(const QuickScene &scene)
{
    return scene.window()->property("toggles").toInt();
}

TEST(SelectToggle, SpaceToggles)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.item("toggle")->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Space);
    EXPECT_EQ(toggleCount(scene), 1);
}

TEST(SelectToggle, ReturnIsLeftToTheRow)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.item("toggle")->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(toggleCount(scene), 0);
}

TEST(SelectToggle, WholeCellTakesTheClick)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    QTest::mouseClick(scene.window(), Qt::LeftButton, Qt::NoModifier, QPoint(28, 26));
    EXPECT_EQ(toggleCount(scene), 2);
}

TEST(SelectToggle, ShowsOnlyTheStateItIsGiven)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const toggle = scene.item("toggle");
    scene.click(toggle);
    EXPECT_FALSE(QuickScene::accessible(toggle)->state().checked);

    scene.window()->setProperty("shown", Qt::Checked);
    EXPECT_TRUE(QuickScene::accessible(toggle)->state().checked);
    scene.window()->setProperty("shown", Qt::PartiallyChecked);
    EXPECT_FALSE(QuickScene::accessible(toggle)->state().checked);
    EXPECT_TRUE(QuickScene::accessible(toggle)->state().checkStateMixed);
}

TEST(SelectToggle, ProtectedPlaceIsNotToggledByAnyWay)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.window()->setProperty("locked", true);
    QQuickItem *const toggle = scene.item("toggle");
    scene.click(toggle);
    toggle->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Space);
    QuickScene::accessible(toggle)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QuickScene::accessible(toggle)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(toggleCount(scene), 0);
}

TEST(SelectToggle, ProtectedPlaceNamesTheReason)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const toggle = scene.item("toggle");
    EXPECT_EQ(QuickScene::accessible(toggle)->text(QAccessible::Description), QString());
    scene.window()->setProperty("locked", true);
    EXPECT_EQ(QuickScene::accessible(toggle)->text(QAccessible::Description),
              QStringLiteral("macOS needs this folder."));

    QObject *const tip = toggle->findChild<QObject *>(QStringLiteral("tip"));
    ASSERT_NE(tip, nullptr);
    scene.hover(toggle);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tip->property("opened").toBool(); }));
    EXPECT_EQ(tip->property("text").toString(), QStringLiteral("macOS needs this folder."));
}

TEST(Tip, AKeyPressHidesItUntilThePointerMoves)
{
    const QuickScene scene(
        "Loader { objectName: 'screen'; sourceComponent: PushButton {\n"
        "objectName: 'control'; text: 'Scan'; width: 100\n"
        "Tip { objectName: 'tip'; text: 'Help'; pointed: parent.hovered; focused: parent.visualFocus } } }");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    const auto isShown = [&] { return scene.object("tip")->property("visible").toBool(); };
    scene.hover(scene.item("control"));
    ASSERT_TRUE(QTest::qWaitFor(isShown));
    scene.key(Qt::Key_F5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isShown(); }));

    // Another control in the same place.
    scene.object("screen")->setProperty("active", false);
    scene.object("screen")->setProperty("active", true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene.item("control")->property("hovered").toBool(); }));
    QTest::qWait(2 * Theme::tipDelayDuration());
    EXPECT_FALSE(isShown());
    QTest::mouseMove(scene.window(), scene.item("control")->mapToScene(QPointF(5, 5)).toPoint());
    EXPECT_TRUE(QTest::qWaitFor(isShown));
    scene.key(Qt::Key_F5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !isShown(); }));
    scene.item("control")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(QTest::qWaitFor(isShown)) << "the focus needs no pointer";
}

TEST(SelectToggle, SaysWhatItIs)
{
    const QuickScene scene(toggles);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(scene.item("toggle")), QAccessible::CheckBox);
    EXPECT_EQ(QuickScene::accessibleName(scene.item("toggle")), QStringLiteral("film.mov"));
}

} // namespace
} // namespace corvane
