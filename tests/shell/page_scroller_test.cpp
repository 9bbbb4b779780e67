#include <gtest/gtest.h>

#include "shell/quick_scene.h"

namespace corvane {
namespace {

/// A page of 1,200 points in a viewport of 300, with a button at its top and one at 900.
class PageScrollerTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(scene.isShown()) << scene.errors().toStdString();
        page = scene.item("page");
    }
    [[nodiscard]] qreal top() const { return page->property("contentY").toReal(); }

    QuickScene scene{"ScrollPage { objectName: \"page\"; width: 400; height: 300; contentHeight: 1200;"
                     " PushButton { objectName: \"first\"; y: 10; text: \"First\" }"
                     " PushButton { objectName: \"last\"; y: 900; height: 28; text: \"Last\" } }"
                     "PushButton { objectName: \"outside\"; x: 450; text: \"Outside\" }"};
    QQuickItem *page = nullptr;
};

TEST_F(PageScrollerTest, KeysOfTheControlsOnThePageScrollIt)
{
    scene.key(Qt::Key_Tab);
    ASSERT_TRUE(scene.item("first")->hasActiveFocus());

    scene.key(Qt::Key_Down);
    EXPECT_EQ(top(), 40);
    scene.key(Qt::Key_PageDown);
    EXPECT_EQ(top(), 300);
    scene.key(Qt::Key_PageUp);
    EXPECT_EQ(top(), 40);
    scene.key(Qt::Key_Up);
    scene.key(Qt::Key_Up);
    EXPECT_EQ(top(), 0);
    scene.key(Qt::Key_End);
    EXPECT_EQ(top(), 900);
    scene.key(Qt::Key_Down);
    EXPECT_EQ(top(), 900);
    scene.key(Qt::Key_Home);
    EXPECT_EQ(top(), 0);
}

TEST_F(PageScrollerTest, KeysWithModifiersAreOthers)
{
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Down, Qt::ControlModifier);
    scene.key(Qt::Key_End, Qt::AltModifier);
    EXPECT_EQ(top(), 0);
}

TEST_F(PageScrollerTest, KeysOfControlsElsewhereLeaveItAlone)
{
    scene.item("outside")->forceActiveFocus(Qt::TabFocusReason);
    scene.key(Qt::Key_Down);
    EXPECT_EQ(top(), 0);
}

TEST_F(PageScrollerTest, WhatTheKeyboardComesToIsBroughtIntoSight)
{
    scene.key(Qt::Key_Tab);
    EXPECT_EQ(top(), 0) << "it is in sight";

    scene.key(Qt::Key_Tab);
    ASSERT_TRUE(scene.item("last")->hasActiveFocus());
    EXPECT_EQ(top(), 900 + 28 + 20 - 300);

    scene.key(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(scene.item("first")->hasActiveFocus());
    EXPECT_EQ(top(), 0);
}

TEST_F(PageScrollerTest, WhatThePointerComesToStaysInItsPlace)
{
    page->setProperty("contentY", 915);
    page->setProperty("contentY", 900);
    scene.click(scene.item("last"));
    EXPECT_TRUE(scene.item("last")->hasActiveFocus());
    EXPECT_EQ(top(), 900);
}

TEST(PageScroller, ItemsThatPaintThemselvesAreBroughtIntoSightAsControlsAre)
{
    QuickScene scene("ScrollPage { objectName: \"page\"; width: 400; height: 300; contentHeight: 1200;"
                     " KeyboardItem { objectName: \"item\"; y: 900; width: 100; height: 28 } }");
    ASSERT_TRUE(scene.isShown()) << scene.errors().toStdString();
    scene.key(Qt::Key_Tab);
    ASSERT_TRUE(scene.item("item")->hasActiveFocus());
    EXPECT_EQ(scene.item("page")->property("contentY").toReal(), 900 + 28 + 20 - 300);
}

} // namespace
} // namespace corvane
