#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "shell/quick_scene.h"

namespace corvane {
namespace {

constexpr auto splitButton = R"(
    property int scans: 0
    property string chosen
    SplitButton {
        objectName: "split"
        x: 300
        text: "Scan"
        menuName: "Ways to scan"
        onClicked: ++scans
        menu: AppMenu {
            objectName: "menu"
            AppMenuItem { objectName: "home"; text: "Scan Home Folder"; onTriggered: chosen = text }
            AppMenuSeparator {}
            AppMenuItem { text: "Scan Entire Disk"; onTriggered: chosen = text }
            AppMenuItem { text: "Off"; enabled: false; onTriggered: chosen = text }
        }
    }
)";

QString chosen(const QuickScene &scene)
{
    return scene.window()->property("chosen").toString();
}

/// The two halves of the split button, left to right.
QList<QQuickItem *> halves(const QuickScene &scene)
{
    QList<QQuickItem *> result;
    for (QQuickItem *const child : scene.item("split")->childItems())
        if (child->inherits("QQuickAbstractButton"))
            result.append(child);
    return result;
}

TEST(SplitButton, FirstHalfIsTheUsualWay)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    ASSERT_EQ(halves(scene).size(), 2);
    scene.click(halves(scene).at(0));
    EXPECT_EQ(scene.window()->property("scans").toInt(), 1);
    EXPECT_FALSE(scene.object("menu")->property("visible").toBool());
}

TEST(SplitButton, SecondHalfOpensTheMenuByMouseSpaceReturnAndDown)
{
    for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Space, Qt::Key_Return, Qt::Key_Down}) {
        const QuickScene scene(splitButton);
        ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
        QQuickItem *const more = halves(scene).at(1);
        if (key == Qt::Key_unknown) {
            scene.click(more);
        } else {
            more->forceActiveFocus(Qt::TabFocusReason);
            scene.key(key);
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("menu"); }));
        EXPECT_EQ(scene.window()->property("scans").toInt(), 0);
    }
}

TEST(SplitButton, BothHalvesSayWhatTheyAre)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(halves(scene).at(0)), QAccessible::Button);
    EXPECT_EQ(QuickScene::accessibleName(halves(scene).at(0)), QStringLiteral("Scan"));
    EXPECT_EQ(QuickScene::accessibleName(halves(scene).at(1)), QStringLiteral("Ways to scan"));
}

TEST(AppMenu, ArrowsAndReturnChooseAndSkipSeparators)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.click(halves(scene).at(1));
    QObject *const menu = scene.object("menu");
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->property("opened").toBool(); }));
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(chosen(scene), QStringLiteral("Scan Entire Disk"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !menu->property("visible").toBool(); }));
}

TEST(AppMenu, EscapeClosesItWithoutAChoice)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.click(halves(scene).at(1));
    QObject *const menu = scene.object("menu");
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->property("opened").toBool(); }));
    scene.key(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !menu->property("visible").toBool(); }));
    EXPECT_EQ(chosen(scene), QString());
}

TEST(AppMenu, ClickChooses)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.click(halves(scene).at(1));
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("menu"); }));
    scene.click(scene.item("home"));
    EXPECT_EQ(chosen(scene), QStringLiteral("Scan Home Folder"));
}

TEST(AppMenu, ItemsSayWhatTheyAreAndCanBePressedByAssistants)
{
    const QuickScene scene(splitButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.click(halves(scene).at(1));
    QObject *const menu = scene.object("menu");
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->property("opened").toBool(); }));
    QQuickItem *const home = scene.item("home");
    EXPECT_EQ(QuickScene::accessibleRole(home), QAccessible::MenuItem);
    EXPECT_EQ(QuickScene::accessibleName(home), QStringLiteral("Scan Home Folder"));
    QuickScene::accessible(home)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(chosen(scene), QStringLiteral("Scan Home Folder"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !menu->property("visible").toBool(); }));
}

TEST(AppMenu, IsWideEnoughForItsLongestRow)
{
    const QuickScene scene(R"(
        AppMenu {
            objectName: "menu"
            AppMenuItem { text: "A command whose name is so long that no menu of two hundred points could hold it" }
            Action { text: "With a shortcut"; shortcut: "Ctrl+R" }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QMetaObject::invokeMethod(scene.object("menu"), "open");
    ASSERT_TRUE(QTest::qWaitFor([&] { return scene.isOpen("menu"); }));
    EXPECT_GT(scene.object("menu")->property("width").toDouble(), 400);
}

// --- PopupButton

constexpr auto popupButton = R"(
    property int chosen: -1
    PopupButton {
        objectName: "popup"
        model: ["Any size", "At least 100 MB", "At least 1 GB"]
        accessibleName: "Minimum size"
        onActivated: index => chosen = index
    }
)";

TEST(PopupButton, ArrowsChangeTheChoice)
{
    const QuickScene scene(popupButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.item("popup")->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Down);
    EXPECT_EQ(scene.item("popup")->property("currentIndex").toInt(), 1);
    EXPECT_EQ(scene.window()->property("chosen").toInt(), 1);
}

TEST(PopupButton, ReturnOpensTheListAndTakesTheHighlightedRow)
{
    const QuickScene scene(popupButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const popup = scene.item("popup");
    popup->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Return);
    QObject *const list = popup->property("popup").value<QObject *>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->property("opened").toBool(); }));
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(popup->property("currentIndex").toInt(), 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !list->property("visible").toBool(); }));
}

TEST(PopupButton, IsWideEnoughForEveryChoice)
{
    const QuickScene scene(popupButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    const QFontMetricsF metrics(scene.item("popup")->property("font").value<QFont>());
    EXPECT_GE(scene.item("popup")->width(), metrics.horizontalAdvance(QStringLiteral("At least 100 MB")) + 30);
}

TEST(PopupButton, SaysWhatItChooses)
{
    const QuickScene scene(popupButton);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(scene.item("popup")), QAccessible::ComboBox);
    EXPECT_EQ(QuickScene::accessibleName(scene.item("popup")), QStringLiteral("Minimum size"));
    EXPECT_EQ(QuickScene::accessible(scene.item("popup"))->text(QAccessible::Description), QStringLiteral("Any size"));
}

// --- Segmented

constexpr auto segmented = R"(
    property int chosen: -1
    Segmented {
        objectName: "segmented"
        segments: ["By size", "By name", "Unused"]
        accessibleName: "Order"
        onActivated: index => chosen = index
    }
)";

QList<QQuickItem *> segments(const QuickScene &scene)
{
    QList<QQuickItem *> result;
    for (QQuickItem *const child : scene.item("segmented")->childItems())
        for (QQuickItem *const grandchild : child->childItems())
            if (grandchild->inherits("QQuickAbstractButton"))
                result.append(grandchild);
    return result;
}

TEST(Segmented, ArrowsMoveTheChoiceAndStopAtTheEnds)
{
    const QuickScene scene(segmented);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const control = scene.item("segmented");
    control->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Left);
    EXPECT_EQ(scene.window()->property("chosen").toInt(), -1);
    scene.key(Qt::Key_Right);
    EXPECT_EQ(control->property("currentIndex").toInt(), 1);
    scene.key(Qt::Key_Right);
    scene.key(Qt::Key_Right);
    EXPECT_EQ(control->property("currentIndex").toInt(), 2);
    EXPECT_EQ(scene.window()->property("chosen").toInt(), 2);
}

TEST(Segmented, ClickChooses)
{
    const QuickScene scene(segmented);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    ASSERT_EQ(segments(scene).size(), 3);
    scene.click(segments(scene).at(1));
    EXPECT_EQ(scene.window()->property("chosen").toInt(), 1);
}

TEST(Segmented, SegmentsSayWhatTheyAreAndWhichHolds)
{
    const QuickScene scene(segmented);
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleName(scene.item("segmented")), QStringLiteral("Order"));
    ASSERT_EQ(segments(scene).size(), 3);
    EXPECT_EQ(QuickScene::accessibleRole(segments(scene).at(0)), QAccessible::RadioButton);
    EXPECT_EQ(QuickScene::accessibleName(segments(scene).at(0)), QStringLiteral("By size"));
    EXPECT_TRUE(QuickScene::accessible(segments(scene).at(0))->state().checked);
    EXPECT_FALSE(QuickScene::accessible(segments(scene).at(1))->state().checked);
}

// --- SearchField

TEST(SearchField, EscapeEmptiesItAndThenBelongsToOthers)
{
    const QuickScene scene(R"(
        property int escapes: 0
        FocusScope {
            Keys.onEscapePressed: ++escapes
            SearchField { objectName: "search"; placeholderText: "Filter by name"; focus: true }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const search = scene.item("search");
    search->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(scene.window(), 'r');
    QTest::keyClick(scene.window(), 'u');
    EXPECT_EQ(search->property("text").toString(), QStringLiteral("ru"));
    scene.key(Qt::Key_Escape);
    EXPECT_EQ(search->property("text").toString(), QString());
    EXPECT_EQ(scene.window()->property("escapes").toInt(), 0);
    scene.key(Qt::Key_Escape);
    EXPECT_EQ(scene.window()->property("escapes").toInt(), 1);
}

TEST(SearchField, SaysWhatItIs)
{
    const QuickScene scene(R"(SearchField { objectName: "search"; placeholderText: "Filter by name" })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(scene.item("search")), QAccessible::EditableText);
    EXPECT_EQ(QuickScene::accessibleName(scene.item("search")), QStringLiteral("Filter by name"));
    EXPECT_TRUE(QuickScene::accessible(scene.item("search"))->state().searchEdit);
}

} // namespace
} // namespace corvane
