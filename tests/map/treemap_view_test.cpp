#include "map/ui/treemap_view.h"

#include <vector>

#include <gtest/gtest.h>

#include <QTest>

#include "map/treemap_builder.h"
#include "map/treemap_view_fixture.h"
#include "map/ui/folder_change.h"
#include "map/ui/tile_tones.h"
#include "support/tree.h"

namespace corvane {
namespace {

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

TEST_F(TreemapViewTest, AnotherChangeDuringAnAnimationEndsIt)
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

} // namespace
} // namespace corvane
