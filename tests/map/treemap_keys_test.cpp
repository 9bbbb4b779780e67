#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "map/treemap_view_fixture.h"

namespace corvane {
namespace {

TEST_F(TreemapViewTest, TheFirstFocusGoesToTheLargestTile)
{
    show();
    focusByTab();
    EXPECT_EQ(view->focusedTile(), tile("Films"));
    EXPECT_TRUE(view->hasVisualFocus());
}

TEST_F(TreemapViewTest, TheFocusRingAppearsOnlyAfterTheKeyboardWasUsed)
{
    show();
    click(tile("film.mov"));
    EXPECT_TRUE(view->hasActiveFocus());
    EXPECT_FALSE(view->hasVisualFocus());
    key(Qt::Key_Left);
    EXPECT_TRUE(view->hasVisualFocus());
    const QRectF rect = view->layout().rect(view->focusedTile());
    const QPoint outside(static_cast<int>(std::round(rect.right())) + 1, rect.toRect().center().y());
    EXPECT_EQ(grab().pixelColor(outside), Theme::instance()->focus());
}

TEST_F(TreemapViewTest, ArrowKeysMoveToTheNeighbour)
{
    show();
    focusByTab();
    const int expected = view->layout().neighbour(tile("Films"), TreemapLayout::Direction::right);
    ASSERT_GE(expected, 0);
    key(Qt::Key_Right);
    EXPECT_EQ(view->focusedTile(), expected);
    key(Qt::Key_Left);
    EXPECT_EQ(view->focusedTile(), tile("Films"));
    key(Qt::Key_Left);
    EXPECT_EQ(view->focusedTile(), tile("Films")) << "at the edge it stays";
}

TEST_F(TreemapViewTest, ReturnOpensTheTile)
{
    show();
    focusByTab();
    key(Qt::Key_Return);
    EXPECT_EQ(store.currentFolder(), node("Films"));
    EXPECT_EQ(view->focusedTile(), tile("Films/a.mov"));
    key(Qt::Key_Enter);
    EXPECT_EQ(store.currentFolder(), node("Films"));
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/Films/a.mov"));
}

TEST_F(TreemapViewTest, SpaceTogglesTheSelection)
{
    show();
    view->focusTile(tile("film.mov"));
    focusByTab();
    key(Qt::Key_Space);
    EXPECT_TRUE(store.isSelected(at("film.mov")));
    key(Qt::Key_Space);
    EXPECT_FALSE(store.isSelected(at("film.mov")));
}

TEST_F(TreemapViewTest, SpaceOnAProtectedItemSaysWhyItCannotBeSelected)
{
    show();
    view->focusTile(tile("Library"));
    focusByTab();
    key(Qt::Key_Space);
    EXPECT_TRUE(store.selection().empty());
    EXPECT_EQ(store.toast(), "Library can't be selected: protected location");
}

TEST_F(TreemapViewTest, EscapeGoesUpToTheTileOneCameFrom)
{
    show();
    open("Projects");
    focusByTab();
    key(Qt::Key_Escape);
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_EQ(view->focusedTile(), tile("Projects"));
    key(Qt::Key_Escape);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, ControlUpGoesUp)
{
    show();
    open("Films/Sub");
    focusByTab();
    key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

TEST_F(TreemapViewTest, TheMenuKeyAsksForTheMenuOfTheFocusedTile)
{
    show();
    focusByTab();
    const QSignalSpy menu(view, &TreemapView::menuRequested);
    key(Qt::Key_Menu);
    key(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(menu.count(), 2);
    EXPECT_EQ(view->menuTarget()->node(), node("Films"));
}

TEST_F(TreemapViewTest, TypingGoesToTheTileOfThatName)
{
    show();
    focusByTab();
    key(Qt::Key_P);
    EXPECT_EQ(view->focusedTile(), tile("Projects"));
    key(Qt::Key_Z);
    EXPECT_EQ(view->focusedTile(), tile("Projects"));
}

TEST_F(TreemapViewTest, DeleteSelectsAndBackspaceGoesUp)
{
    show();
    open("Films");
    focusByTab();
    key(Qt::Key_Delete);
    key(Qt::Key_Delete);
    EXPECT_TRUE(store.isSelected(at("Films/a.mov")));
    key(Qt::Key_Backspace);
    EXPECT_EQ(store.currentFolder(), store.root());
    key(Qt::Key_Backspace);
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, ControlASelectsTheItemsOfTheFolder)
{
    show();
    open("Films");
    focusByTab();
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(store.selection().size(), 2u);
    EXPECT_TRUE(store.isSelected(at("Films/Sub")));
}

} // namespace
} // namespace corvane
