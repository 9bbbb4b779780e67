#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "map/treemap_view_fixture.h"

namespace corvane {
namespace {

TEST_F(TreemapViewTest, TheDeepestTileUnderThePointerIsHovered)
{
    show();
    hover(tile("Films/a.mov"));
    EXPECT_EQ(view->hoveredTile(), tile("Films/a.mov"));
    hover(tile("Films"));
    EXPECT_EQ(view->hoveredTile(), tile("Films"));
    EXPECT_EQ(view->hoveredRow(), 0);
}

TEST_F(TreemapViewTest, ManyMovementsWithinOneFrameAreAnnouncedOnce)
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

TEST_F(TreemapViewTest, TheSecondClickOfADoubleClickOpensAFileOnly)
{
    show();
    QTest::mouseDClick(&window, Qt::LeftButton, Qt::NoModifier, point(tile("film.mov")));
    EXPECT_THAT(fake.log->lines(), testing::Contains("openUrl file:///home/studio/film.mov"));
    QTest::mouseDClick(&window, Qt::LeftButton, Qt::NoModifier, point(tile("Projects")));
    EXPECT_EQ(store.currentFolder(), node("Projects"));
    EXPECT_THAT(fake.log->lines(), testing::Not(testing::Contains("openUrl file:///home/studio/Projects/c.zip")));
}

} // namespace
} // namespace corvane
