#include <gtest/gtest.h>

#include <QAccessible>

#include "map/treemap_view_fixture.h"

namespace corvane {
namespace {

class TreemapAccessibilityTest : public TreemapViewTest {
protected:
    QAccessibleInterface *map() { return QAccessible::queryAccessibleInterface(view); }
    QAccessibleInterface *child(const std::string &relative) { return map()->child(tile(relative)); }
};

TEST_F(TreemapAccessibilityTest, EveryTileIsAChildWithNameRoleAndPlace)
{
    show();
    ASSERT_NE(map(), nullptr);
    EXPECT_EQ(map()->role(), QAccessible::List);
    EXPECT_EQ(map()->childCount(), view->layout().count());
    QAccessibleInterface *films = child("Films");
    ASSERT_NE(films, nullptr);
    EXPECT_EQ(films->role(), QAccessible::ListItem);
    EXPECT_EQ(films->text(QAccessible::Name), QStringLiteral("Films, 50 MB, 51.1%"));
    EXPECT_EQ(films->parent(), map());
    EXPECT_EQ(map()->indexOfChild(films), tile("Films"));
    EXPECT_EQ(films->rect().size(), view->layout().rect(tile("Films")).size().toSize());
    EXPECT_EQ(map()->childAt(films->rect().left() + 30, films->rect().top() + 10), films);
    EXPECT_EQ(map()->child(-1), nullptr);
    EXPECT_EQ(map()->child(999), nullptr);
}

TEST_F(TreemapAccessibilityTest, PressingATileOpensIt)
{
    show();
    QAccessibleActionInterface *actions = child("Films")->actionInterface();
    ASSERT_NE(actions, nullptr);
    EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

TEST_F(TreemapAccessibilityTest, AFileCannotBePressedButToggled)
{
    show();
    QAccessibleActionInterface *actions = child("film.mov")->actionInterface();
    EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(store.isSelected(at("film.mov")));
    EXPECT_TRUE(child("film.mov")->state().checked);
}

TEST_F(TreemapAccessibilityTest, ATileInsideASelectedFolderSaysThatItIsSelected)
{
    show();
    select("Films");
    open("Films");
    EXPECT_TRUE(child("Films/a.mov")->state().checked);
}

TEST_F(TreemapAccessibilityTest, TheFocusedTileSaysSo)
{
    show();
    focusByTab();
    EXPECT_TRUE(child("Films")->state().focused);
    EXPECT_FALSE(child("film.mov")->state().focused);
    EXPECT_EQ(map()->focusChild(), child("Films"));
}

TEST_F(TreemapAccessibilityTest, ATileThatIsGoneIsInvalid)
{
    show();
    QAccessibleInterface *last = map()->child(view->layout().count() - 1);
    ASSERT_TRUE(last->isValid());
    open("Projects");
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->state().invalid);
    EXPECT_TRUE(last->actionInterface()->actionNames().isEmpty());
    last->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(store.currentFolder(), node("Projects"));
}

} // namespace
} // namespace corvane
