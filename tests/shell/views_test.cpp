#include <gtest/gtest.h>

#include "shell/quick_scene.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

TEST(RiskBadge, NamesTheRiskAndNeverByColorAlone)
{
    const QuickScene scene(R"(
        Row {
            RiskBadge { objectName: "safe"; risk: "safe" }
            RiskBadge { objectName: "review"; risk: "review" }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleName(scene.item("safe")), QStringLiteral("Safe"));
    EXPECT_EQ(QuickScene::accessibleName(scene.item("review")), QStringLiteral("Review"));
    EXPECT_NE(scene.item("safe")->property("iconName"), scene.item("review")->property("iconName"));
}

TEST(SizeBar, SmallestShareStaysVisibleAndLargestStaysInside)
{
    const QuickScene scene(R"(
        Column {
            SizeBar { objectName: "none"; width: 200; fraction: 0; barColor: "red" }
            SizeBar { objectName: "half"; width: 200; fraction: 0.5; barColor: "red" }
            SizeBar { objectName: "more"; width: 200; fraction: 1.4; barColor: "red" }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    const auto part = [&](const char *name) { return scene.item(name)->childItems().first()->width(); };
    EXPECT_DOUBLE_EQ(part("none"), 3);
    EXPECT_DOUBLE_EQ(part("half"), 100);
    EXPECT_DOUBLE_EQ(part("more"), 200);
}

TEST(StatView, ReadsTitleAndFigureTogether)
{
    const QuickScene scene(R"(StatView { objectName: "stat"; value: "213"; title: "Files over 100 MB" })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleName(scene.item("stat")), QStringLiteral("Files over 100 MB: 213"));
}

TEST(EmptyStateView, ButtonSaysWhatToDoAndDoesIt)
{
    const QuickScene scene(R"(
        property int activations: 0
        EmptyStateView {
            anchors.fill: parent
            symbol: "scalemass"
            title: "Scan first to see Large Files"
            message: "Nothing is changed or removed."
            actionText: "Scan Home Folder"
            onActivated: ++activations
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.key(Qt::Key_Tab);
    ASSERT_NE(scene.window()->activeFocusItem(), nullptr);
    EXPECT_EQ(QuickScene::accessibleName(scene.window()->activeFocusItem()), QStringLiteral("Scan Home Folder"));
    scene.key(Qt::Key_Return);
    EXPECT_EQ(scene.window()->property("activations").toInt(), 1);
}

TEST(EmptyStateView, WithoutAnActionThereIsNothingToPress)
{
    const QuickScene scene(R"(
        EmptyStateView { anchors.fill: parent; symbol: "sparkles"; title: "All clean" }
    )");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    scene.key(Qt::Key_Tab);
    QQuickItem *const focused = scene.window()->activeFocusItem();
    EXPECT_TRUE(focused == nullptr || !focused->inherits("QQuickAbstractButton"));
}

/// The 1 x 20 line of a header.
bool hasRule(const QQuickItem *header)
{
    for (const QQuickItem *const child : header->childItems())
        if (child->isVisible() && child->width() == 1 && child->height() == 20)
            return true;
    return false;
}

TEST(ListHeader, LinePartsControlsFromTheScanCommandsOnlyWhereThereAreBoth)
{
    const QuickScene scene(R"(
        Column {
            width: 600
            ListHeader {
                objectName: "both"
                width: parent.width; title: "Large Files"; symbol: "scalemass"
                trailing: PushButton { text: "Select All" }
                toolbar: PushButton { text: "Rescan" }
            }
            ListHeader {
                objectName: "one"
                width: parent.width; title: "Overview"; symbol: "chart.pie"
                toolbar: PushButton { text: "Rescan" }
            }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_DOUBLE_EQ(scene.item("both")->height(), 56);
    EXPECT_TRUE(hasRule(scene.item("both")));
    EXPECT_FALSE(hasRule(scene.item("one")));
}

TEST(ListHeader, LongTitleGivesWayToTheControls)
{
    const QuickScene scene(R"(
        ListHeader {
            objectName: "header"
            width: 600
            title: "A title of a length that no header of six hundred points could ever show together with its controls"
            trailing: PushButton { objectName: "control"; text: "Select All" }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const control = scene.item("control");
    EXPECT_DOUBLE_EQ(control->mapToScene(QPointF(control->width(), 0)).x(), 600 - 24);
    for (QQuickItem *const item : scene.item("header")->findChildren<QQuickItem *>()) {
        if (item->inherits("QQuickText") && item->property("text").toString().startsWith(QStringLiteral("A title"))) {
            EXPECT_LT(item->mapToScene(QPointF(item->width(), 0)).x(), control->mapToScene(QPointF(0, 0)).x());
        }
    }
}

TEST(PlainText, NamesThatLookLikeMarkupAreShownAsTheyAre)
{
    const QuickScene scene(R"(PlainText { objectName: "name"; text: "<b>bold</b>.txt" })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(scene.item("name")->property("textFormat").toInt(), Qt::PlainText);
}

TEST(IndeterminateBar, SaysWhatGoesOn)
{
    const QuickScene scene(R"(IndeterminateBar { objectName: "bar"; width: 100; accessibleName: "Scanning" })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    EXPECT_EQ(QuickScene::accessibleRole(scene.item("bar")), QAccessible::ProgressBar);
    EXPECT_EQ(QuickScene::accessibleName(scene.item("bar")), QStringLiteral("Scanning"));
}

TEST(IndeterminateBar, SweepsAndStandsStillUnderReducedMotion)
{
    const QuickScene scene(R"(IndeterminateBar { objectName: "bar"; width: 100; accessibleName: "Scanning" })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    QQuickItem *const part = scene.item("bar")->childItems().first();
    const double before = part->x();
    ASSERT_TRUE(QTest::qWaitFor([&] { return part->x() != before; }));

    Theme::instance()->setReducedMotion(true);
    EXPECT_DOUBLE_EQ(part->x() + part->width() / 2, 50);
    ASSERT_TRUE(QTest::qWaitFor([&] { return part->opacity() < 0.95; }));
    EXPECT_DOUBLE_EQ(part->x() + part->width() / 2, 50);
    Theme::instance()->setReducedMotion(false);
}

TEST(Components, RecolorWhenTheSchemeChanges)
{
    const QuickScene scene(R"(Panel { objectName: "panel"; width: 100; height: 50 })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    Theme::instance()->setDark(false);
    EXPECT_EQ(scene.item("panel")->property("color").value<QColor>(), QColor("#FFFFFF"));
    Theme::instance()->setDark(true);
    EXPECT_EQ(scene.item("panel")->property("color").value<QColor>(), QColor("#2E2F35"));
    Theme::instance()->setDark(false);
}

TEST(Components, IconsAndFileIconsAndShadowsLoad)
{
    const QuickScene scene(R"(
        Column {
            Icon { objectName: "icon"; name: "house" }
            Icon { objectName: "symbol"; symbol: "chart.pie" }
            FileIcon { objectName: "file"; iconKey: "1/L2ZvbGRlcg" }
            AppIcon { objectName: "app" }
            Panel { objectName: "panel"; width: 20; height: 20; elevation: 3 }
        })");
    ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors());
    constexpr int ready = 1; // Image.Ready
    for (const char *const name : {"icon", "symbol", "file", "app"})
        EXPECT_EQ(scene.item(name)->property("status").toInt(), ready) << name;
    const QList<QQuickItem *> shadows = scene.item("panel")->findChildren<QQuickItem *>();
    for (QQuickItem *const item : shadows) {
        if (item->inherits("QQuickBorderImage")) {
            EXPECT_EQ(item->property("status").toInt(), ready);
        }
    }
}

} // namespace
} // namespace corvane
