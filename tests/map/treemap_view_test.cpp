#include "map/ui/treemap_view.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include <gmock/gmock.h>

#include <gtest/gtest.h>

#include <QAccessible>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include "map/explorer_fixture.h"
#include "map/treemap_builder.h"
#include "map/ui/folder_change.h"
#include "map/ui/tile_tones.h"
#include "shell/ui/theme.h"
#include "support/tree.h"

namespace corvane {
namespace {

constexpr int patience = 5'000; // milliseconds

/// The map of a small home in its own window, operated by real mouse and key events.
class TreemapViewTest : public test::ExplorerFixture {
protected:
    TreemapViewTest()
    {
        addFile("Films/a.mov", 30'000'000);
        addFile("Films/Sub/b.mov", 20'000'000);
        addFile("Projects/c.zip", 20'000'000);
        addFile("film.mov", 10'000'000);
        addFile("X.app/Contents/x", 9'000'000);
        addFile("Library/Caches/c", 8'000'000);
        addFile("small", 900'000);
    }
    ~TreemapViewTest() override { Theme::instance()->setReducedMotion(false); }

    void show()
    {
        Theme::instance()->setReducedMotion(true);
        scanHome();
        showWindow();
    }
    void showWindow(QSize size = {600, 400})
    {
        window.resize(size);
        view = new TreemapView(store, window.contentItem());
        view->setSize(size);
        window.show();
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        drawFrame();
    }
    void drawFrame()
    {
        const QImage frame = grab();
        ASSERT_FALSE(view->picture().isNull());
    }
    void allowMotion()
    {
        Theme::instance()->setReducedMotion(false);
        drawFrame();
    }
    [[nodiscard]] int tile(const std::string &relative) const { return view->layout().indexOf(node(relative).get()); }
    /// A point of the tile outside its nested tiles.
    [[nodiscard]] QPoint point(int index) const
    {
        return view->layout().rect(index).topLeft().toPoint() + QPoint(20, 8);
    }
    /// Moves the pointer off the map. The offscreen platform's own pointer is initially inside the window.
    void leave()
    {
        QHoverEvent event(QEvent::HoverLeave, QPointF(-1, -1), QPointF(-1, -1), QPointF(1, 1));
        QCoreApplication::sendEvent(view, &event);
    }
    void hover(int index) { QTest::mouseMove(&window, point(index)); }
    void click(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(&window, button, Qt::NoModifier, point(index));
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&window, key, modifiers);
    }
    void focusByTab() { view->forceActiveFocus(Qt::TabFocusReason); }
    [[nodiscard]] QImage grab() { return window.grabWindow(); }

    QQuickWindow window;
    TreemapView *view = nullptr;
};

// --- Pointer

TEST_F(TreemapViewTest, TheDeepestTileUnderThePointerIsHovered)
{
    show();
    hover(tile("Films/a.mov"));
    EXPECT_EQ(view->hoveredTile(), tile("Films/a.mov"));
    hover(tile("Films"));
    EXPECT_EQ(view->hoveredTile(), tile("Films"));
    EXPECT_EQ(view->hoveredRow(), 0);
}

TEST_F(TreemapViewTest, ManyMovementsWithinOneFrameAreToldOnce)
{
    show();
    drawFrame();
    leave();
    const QSignalSpy hovered(view, &TreemapView::hoverChanged);
    const QSignalSpy moved(view, &TreemapView::pointerChanged);
    for (const int x : {20, 21, 22, 23}) {
        const QPointF place = view->layout().rect(tile("Films")).topLeft() + QPointF(x, 8);
        QHoverEvent event(QEvent::HoverMove, place, place, place);
        QCoreApplication::sendEvent(view, &event);
        EXPECT_EQ(view->pointer(), place);
    }
    EXPECT_EQ(moved.count(), 0);
    drawFrame();
    EXPECT_EQ(hovered.count(), 1);
    EXPECT_EQ(moved.count(), 1);
}

TEST_F(TreemapViewTest, TheHandIsShownOverFoldersAndPackagesOnly)
{
    show();
    hover(tile("Films"));
    EXPECT_EQ(view->cursor().shape(), Qt::PointingHandCursor);
    hover(tile("film.mov"));
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
    hover(tile("X.app"));
    EXPECT_EQ(view->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(TreemapViewTest, ThePillSaysWhatTheTileIsOfTheFolderShown)
{
    show();
    hover(tile("Films"));
    EXPECT_EQ(view->pillTitle(), QStringLiteral("Films"));
    EXPECT_EQ(view->pillInfo(), QStringLiteral("50 MB · 51.1% · click to open"));
    hover(tile("film.mov"));
    EXPECT_EQ(view->pillInfo(), QStringLiteral("10 MB · 10.2%"));
}

TEST_F(TreemapViewTest, ThePillWaitsTheFirstTimeOnly)
{
    show();
    hover(tile("Films"));
    EXPECT_FALSE(view->isPillShown());
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->isPillShown(); }, patience));
    hover(tile("film.mov"));
    EXPECT_TRUE(view->isPillShown());
}

TEST_F(TreemapViewTest, ThePillGoesWithThePointer)
{
    show();
    hover(tile("Films"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->isPillShown(); }, patience));
    view->setSize(QSizeF(300, 200));
    QTest::mouseMove(&window, QPoint(500, 350));
    EXPECT_FALSE(view->isPillShown());
    EXPECT_EQ(view->hoveredTile(), -1);
}

TEST_F(TreemapViewTest, HoveringRingsTheTileAndRedrawsNothing)
{
    show();
    const qint64 picture = view->picture().cacheKey();
    hover(tile("film.mov"));
    const QImage image = grab();
    const QRectF rect = view->layout().rect(tile("film.mov"));
    EXPECT_EQ(image.pixelColor(rect.toRect().center().x(), static_cast<int>(std::round(rect.top()))),
              QColor(Qt::white));
    EXPECT_EQ(view->picture().cacheKey(), picture);
}

TEST_F(TreemapViewTest, ARowOfTheListRingsItsTile)
{
    show();
    const QRectF rect = view->layout().rect(tile("Projects"));
    const QPoint edge(rect.toRect().center().x(), static_cast<int>(std::round(rect.top())));
    EXPECT_NE(grab().pixelColor(edge), QColor(Qt::white));
    view->setHighlightedRow(1);
    EXPECT_EQ(grab().pixelColor(edge), QColor(Qt::white));
    view->setHighlightedRow(-1);
    EXPECT_NE(grab().pixelColor(edge), QColor(Qt::white));
}

TEST_F(TreemapViewTest, AClickOpensAFolder)
{
    show();
    click(tile("Films"));
    EXPECT_EQ(store.currentFolder(), node("Films"));
}

TEST_F(TreemapViewTest, AClickOnANestedFolderOpensThatOne)
{
    show();
    click(tile("Films/Sub"));
    EXPECT_EQ(store.currentFolder(), node("Films/Sub"));
}

TEST_F(TreemapViewTest, AClickOpensAPackageButNotAFile)
{
    show();
    click(tile("film.mov"));
    EXPECT_EQ(store.currentFolder(), store.root());
    click(tile("X.app"));
    EXPECT_EQ(store.currentFolder(), node("X.app"));
}

TEST_F(TreemapViewTest, APressThatEndsOnAnotherTileOpensNothing)
{
    show();
    QTest::mousePress(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Films")));
    QTest::mouseRelease(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Projects")));
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, ARightClickWhileTheLeftButtonIsDownOpensNoFolder)
{
    show();
    QTest::mousePress(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Films")));
    QTest::mousePress(&window, Qt::RightButton, Qt::NoModifier, point(tile("Films")));
    QTest::mouseRelease(&window, Qt::RightButton, Qt::NoModifier, point(tile("Films")));
    EXPECT_EQ(store.currentFolder(), store.root());
    QTest::mouseRelease(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Films")));
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, ARightClickAsksForTheMenuOfTheTile)
{
    show();
    const QSignalSpy menu(view, &TreemapView::menuRequested);
    click(tile("film.mov"), Qt::RightButton);
    ASSERT_EQ(menu.count(), 1);
    EXPECT_EQ(view->menuTarget()->node(), node("film.mov"));
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, AnAggregateHasNoMenu)
{
    show();
    const int aggregate = view->layout().tileOfRow(5);
    ASSERT_GE(aggregate, 0);
    ASSERT_EQ(view->layout().tile(aggregate).label, "1 small file");
    const QSignalSpy menu(view, &TreemapView::menuRequested);
    QTest::mouseClick(&window, Qt::RightButton, Qt::NoModifier, view->layout().rect(aggregate).center().toPoint());
    EXPECT_EQ(menu.count(), 0);
}

// --- Keyboard

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

// --- Painting

TEST_F(TreemapViewTest, TheSelectionRedrawsThePicture)
{
    show();
    const qint64 before = view->picture().cacheKey();
    select("film.mov");
    ASSERT_TRUE(QTest::qWaitFor([&] { return view->picture().cacheKey() != before; }, patience));
}

TEST_F(TreemapViewTest, TheThemeRedrawsThePicture)
{
    show();
    const QColor before = view->picture().pixelColor(0, 0);
    const bool dark = Theme::instance()->isDark();
    Theme::instance()->setDark(!dark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->picture().pixelColor(0, 0) != before; }, patience));
    Theme::instance()->setDark(dark);
}

TEST_F(TreemapViewTest, ARemovalTakesTheTileAwayAndKeepsTheFocus)
{
    show();
    view->focusTile(tile("film.mov"));
    removeItem("Projects", 20'000'000);
    EXPECT_EQ(tile("Projects"), -1);
    EXPECT_EQ(view->focusedTile(), tile("film.mov"));
}

TEST_F(TreemapViewTest, ASizeGivesNewTiles)
{
    show();
    const QRectF before = view->layout().rect(0);
    view->setSize(QSizeF(300, 200));
    EXPECT_NE(view->layout().rect(0), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->picture().size() == QSize(300, 200); }, patience));
}

TEST_F(TreemapViewTest, WhatComesToCoverTheMapMovesNoTile)
{
    show();
    const QRectF before = view->layout().rect(0);
    view->setCoveredHeight(60);
    EXPECT_EQ(view->layout().rect(0), before);

    open("Films");
    for (int i = 0; i < view->layout().count(); ++i)
        EXPECT_LE(view->layout().rect(i).bottom(), 340) << "another folder has the room above";
    store.openParent();
    removeItem("Projects", 20'000'000);
    EXPECT_LE(view->layout().rect(tile("film.mov")).bottom(), 340);
}

TEST_F(TreemapViewTest, WhatUncoversTheMapMovesNoTileUnderThePointer)
{
    show();
    view->setCoveredHeight(60);
    open("Films");
    const QRectF before = view->layout().rect(0);
    QTest::mouseMove(&window, QPoint(100, 100));
    view->setCoveredHeight(0);
    EXPECT_EQ(view->layout().rect(0), before);
    leave();
    EXPECT_GT(view->layout().rect(0).height(), before.height());
}

TEST_F(TreemapViewTest, WithThePointerElsewhereTheMapTakesTheRoomBack)
{
    show();
    view->setCoveredHeight(60);
    open("Films");
    leave();
    const QRectF before = view->layout().rect(0);
    view->setCoveredHeight(0);
    EXPECT_GT(view->layout().rect(0).height(), before.height());
}

TEST_F(TreemapViewTest, ThePillStaysAboveWhatCoversTheMap)
{
    show();
    view->setCoveredHeight(60);
    EXPECT_LE(view->pillPlace(QPointF(100, 330), QSizeF(200, 48)).y() + 48, 340);
}

TEST_F(TreemapViewTest, TheSecondClickOfADoubleClickOpensAFileOnly)
{
    show();
    QTest::mouseDClick(&window, Qt::LeftButton, Qt::NoModifier, point(tile("film.mov")));
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/film.mov"));
    QTest::mouseDClick(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Projects")));
    EXPECT_EQ(store.currentFolder(), node("Projects"));
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains("openUrl file:///home/studio/Projects/c.zip")));
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

TEST_F(TreemapViewTest, AFolderWithoutItemsShowsNoTiles)
{
    show();
    addFolder("Empty");
    scan(at("Empty"));
    EXPECT_EQ(view->layout().count(), 0);
    focusByTab();
    key(Qt::Key_Right);
    key(Qt::Key_Return);
    key(Qt::Key_Space);
    key(Qt::Key_Menu);
    QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    EXPECT_EQ(store.currentFolder(), store.root());
}

TEST_F(TreemapViewTest, WithoutAScanThereIsNothing)
{
    showWindow();
    EXPECT_EQ(view->layout().count(), 0);
    QTest::mouseMove(&window, QPoint(100, 100));
    EXPECT_EQ(view->hoveredTile(), -1);
}

// --- Changing folders

TEST_F(TreemapViewTest, GoingInAndOutIsAnimatedOnce)
{
    show();
    allowMotion();
    open("Films");
    EXPECT_TRUE(view->isChangingFolder());
    EXPECT_FALSE(grab().isNull());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view->isChangingFolder(); }, patience));
    const QImage still = grab();
    for (int i = 0; i < view->layout().count(); ++i) {
        const QPoint middle = view->layout().rect(i).center().toPoint();
        EXPECT_EQ(still.pixelColor(middle), view->picture().pixelColor(middle)) << i;
    }
    store.openParent();
    EXPECT_TRUE(view->isChangingFolder());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !view->isChangingFolder(); }, patience));
}

TEST_F(TreemapViewTest, AFolderOpensInTheColourOfItsTile)
{
    show();
    allowMotion();
    const QSizeF size(600, 400);
    const TreemapLayout around(*store.root(), size);
    const TreemapLayout inside(*node("Films"), size);
    QImage painted(8, 8, QImage::Format_RGB32);
    painted.fill(Qt::red);
    std::vector<Color> colors;
    const auto paint = [&](const FolderChange::Place &place, const Color &color) {
        EXPECT_EQ(place.folder, node("Films"));
        colors.push_back(color);
        return painted;
    };
    for (const bool inward : {true, false}) {
        FolderChange change;
        const FolderChange::Place outer{store.root(), around};
        const FolderChange::Place inner{node("Films"), inside};
        change.start(inward ? outer : inner, inward ? inner : outer, painted, paint);
        ASSERT_TRUE(change.isRunning());
        EXPECT_EQ(change.tinted(), painted);
    }
    const Color ofTile = around.tile(around.indexOf(node("Films").get())).color;
    EXPECT_EQ(colors, (std::vector<Color>{ofTile, ofTile}));
    EXPECT_NE(inside.tile(inside.indexOf(node("Films/Sub").get())).color, ofTile);
}

TEST_F(TreemapViewTest, WithReducedMotionNothingMoves)
{
    show();
    open("Films");
    EXPECT_FALSE(view->isChangingFolder());
}

TEST_F(TreemapViewTest, AChangeToAnUnrelatedFolderIsNotAnimated)
{
    show();
    open("Projects");
    allowMotion();
    open("Films");
    EXPECT_FALSE(view->isChangingFolder());
}

TEST_F(TreemapViewTest, AnotherChangeWhileOneRunsIsHarmless)
{
    show();
    allowMotion();
    open("Films");
    open("Films/Sub");
    store.openParent();
    store.openParent();
    view->setSize(QSizeF(500, 300));
    EXPECT_FALSE(view->isChangingFolder());
    EXPECT_EQ(store.currentFolder(), store.root());
    EXPECT_FALSE(grab().isNull());
}

// --- Screen readers

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
