#include <gtest/gtest.h>

#include "shell/quick_scene.h"

namespace corvane {
namespace {

constexpr auto fields = R"(
    property int submits: 0
    property int toggles: 0
    Column {
        LineField { objectName: "line"; accessibleName: "E-mail"; placeholderText: "Optional" }
        TextBox {
            objectName: "box"
            width: 200; height: 60
            accessibleName: "Message"
            placeholderText: "What happened?"
            onSubmitted: ++submits
        }
        LabeledCheck { objectName: "check"; text: "Include the version"; onToggled: ++toggles }
        ToggleSwitch { objectName: "switch"; accessibleName: "Check automatically"; onToggled: ++toggles }
        Segmented {
            objectName: "kinds"
            width: 304
            fills: true
            accessibleName: "Type"
            segments: ["Idea", "Bug", "Other"]
        }
    }
)";

struct FieldsTest : testing::Test {
    void SetUp() override { ASSERT_TRUE(scene.isShown()) << qPrintable(scene.errors()); }

    void focus(const char *name) const { scene.item(name)->forceActiveFocus(Qt::TabFocusReason); }
    void type(const char *text) const
    {
        for (; *text != '\0'; ++text)
            QTest::keyClick(scene.window(), *text);
    }
    [[nodiscard]] QString text(const char *name) const { return scene.object(name)->property("text").toString(); }
    [[nodiscard]] int count(const char *name) const { return scene.window()->property(name).toInt(); }
    [[nodiscard]] bool isShown(const QString &words) const
    {
        return scene.find([&](QQuickItem *item) {
            return item->property("textFormat").isValid() && item->property("text").toString() == words;
        }) != nullptr;
    }

    QuickScene scene{fields};
};

TEST_F(FieldsTest, SayWhatTheyAre)
{
    EXPECT_NE(scene.named(QStringLiteral("E-mail"), QAccessible::EditableText), nullptr);
    EXPECT_NE(scene.named(QStringLiteral("Message"), QAccessible::EditableText), nullptr);
    EXPECT_NE(scene.named(QStringLiteral("Include the version"), QAccessible::CheckBox), nullptr);
    EXPECT_NE(scene.named(QStringLiteral("Check automatically"), QAccessible::CheckBox), nullptr);
}

TEST_F(FieldsTest, HintGoesWithTheFirstLetter)
{
    EXPECT_TRUE(isShown(QStringLiteral("Optional")));
    EXPECT_TRUE(isShown(QStringLiteral("What happened?")));
    focus("line");
    type("a");
    focus("box");
    type("b");
    EXPECT_FALSE(isShown(QStringLiteral("Optional")));
    EXPECT_FALSE(isShown(QStringLiteral("What happened?")));
}

TEST_F(FieldsTest, ReturnMakesALineAndWithControlItSubmits)
{
    focus("box");
    type("a");
    scene.key(Qt::Key_Return);
    type("b");
    EXPECT_EQ(text("box"), QStringLiteral("a\nb"));
    EXPECT_EQ(count("submits"), 0);
    scene.key(Qt::Key_Return, Qt::ControlModifier);
    scene.key(Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(text("box"), QStringLiteral("a\nb"));
    EXPECT_EQ(count("submits"), 2);
}

TEST_F(FieldsTest, TabLeavesTheBoxInBothDirections)
{
    focus("box");
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(scene.item("check")->hasActiveFocus());
    scene.key(Qt::Key_Backtab);
    scene.key(Qt::Key_Backtab);
    EXPECT_TRUE(scene.item("line")->hasActiveFocus());
    EXPECT_TRUE(text("box").isEmpty());
}

TEST_F(FieldsTest, BoxKeepsTheCursorInSight)
{
    focus("box");
    for (int line = 0; line < 10; ++line)
        scene.key(Qt::Key_Return);
    const QQuickItem *const area = scene.window()->activeFocusItem();
    const QRectF cursor = area->mapRectToItem(scene.item("box"), area->property("cursorRectangle").toRectF());
    EXPECT_GE(cursor.top(), 0);
    EXPECT_LE(cursor.bottom(), scene.item("box")->height());
}

TEST_F(FieldsTest, MarkupIsTakenLiterally)
{
    focus("box");
    type("<b>x</b>");
    EXPECT_EQ(text("box"), QStringLiteral("<b>x</b>"));
}

TEST_F(FieldsTest, SpaceAndTheMouseAndAssistantsToggle)
{
    int expected = 0;
    for (const char *name : {"check", "switch"}) {
        QQuickItem *const control = scene.item(name);
        focus(name);
        scene.key(Qt::Key_Space);
        EXPECT_TRUE(control->property("checked").toBool());
        scene.click(control);
        EXPECT_FALSE(control->property("checked").toBool());
        QuickScene::accessible(control)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_TRUE(control->property("checked").toBool());
        EXPECT_TRUE(QuickScene::accessible(control)->state().checked);
        expected += 3;
        EXPECT_EQ(count("toggles"), expected);
    }
}

TEST_F(FieldsTest, SegmentsThatFillHaveEqualParts)
{
    std::vector<double> widths;
    static_cast<void>(scene.find([&](QQuickItem *item) {
        if (QuickScene::accessibleRole(item) == QAccessible::RadioButton)
            widths.push_back(item->width());
        return false;
    }));
    EXPECT_EQ(widths, (std::vector<double>{100, 100, 100}));
}

} // namespace
} // namespace corvane
