#include "map/ui/treemap_painter.h"

#include <vector>

#include <gtest/gtest.h>

#include <QImage>

#include "map/treemap_builder.h"
#include "shell/ui/theme.h"

namespace corvane {
namespace {

const QColor ground(Qt::white);

class TreemapPainterTest : public testing::Test {
protected:
    QImage paint(const std::vector<TileFace> &tiles, double ratio = 1)
    {
        QImage image(QSize(200, 200) * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(ground);
        const Theme &theme = *Theme::instance();
        TreemapPainter(tones, {.name = theme.secondarySemiboldFont(),
                               .nestedName = theme.captionMediumFont(),
                               .size = theme.captionFiguresFont()})
            .paint(image, tiles);
        return image;
    }

    /// Whether anything other than the tile's fill is painted inside the rectangle.
    [[nodiscard]] static bool hasMarks(const QImage &image, const QRect &rect, const QColor &fill)
    {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            for (int x = rect.left(); x <= rect.right(); ++x) {
                if (image.pixelColor(x, y) != fill)
                    return true;
            }
        }
        return false;
    }

    const Color color = TreemapBuilder::folderColor(0);
    TileTones tones{false};
};

TEST_F(TreemapPainterTest, ATileIsFilledWithTheToneOfItsRole)
{
    const QImage image = paint({{.rect = {0, 0, 40, 40}, .color = color, .role = TileRole::leaf},
                                {.rect = {50, 0, 40, 40}, .color = color, .role = TileRole::frame},
                                {.rect = {100, 0, 40, 40}, .color = color, .role = TileRole::nested, .rank = 1}});
    EXPECT_EQ(image.pixelColor(20, 35), tones.fill(color, TileRole::leaf));
    EXPECT_EQ(image.pixelColor(70, 35), tones.fill(color, TileRole::frame));
    EXPECT_EQ(image.pixelColor(120, 35), tones.fill(color, TileRole::nested, 1));
}

TEST_F(TreemapPainterTest, EdgesFallOnWholePixels)
{
    const QImage image = paint({{.rect = {10.4, 10.6, 60, 60}, .color = color}});
    const QColor fill = tones.fill(color, TileRole::leaf);
    EXPECT_EQ(image.pixelColor(40, 11), fill);
    EXPECT_EQ(image.pixelColor(40, 10), ground);
    EXPECT_EQ(image.pixelColor(10, 50), fill);
    EXPECT_EQ(image.pixelColor(9, 50), ground);
    EXPECT_EQ(image.pixelColor(69, 50), fill);
    EXPECT_EQ(image.pixelColor(70, 50), ground);
}

TEST_F(TreemapPainterTest, CornersAreRoundUnlessTheTileIsTooSmall)
{
    EXPECT_EQ(TreemapPainter::cornerRadius({0, 0, 100, 100}, TileRole::frame), 4);
    EXPECT_EQ(TreemapPainter::cornerRadius({0, 0, 100, 100}, TileRole::leaf), 3);
    EXPECT_EQ(TreemapPainter::cornerRadius({0, 0, 100, 100}, TileRole::nested), 2);
    EXPECT_EQ(TreemapPainter::cornerRadius({0, 0, 100, 7.9}, TileRole::leaf), 0);

    const QImage image = paint({{.rect = {0, 0, 40, 40}, .color = color}, {.rect = {50, 0, 40, 7}, .color = color}});
    EXPECT_NE(image.pixelColor(0, 0), tones.fill(color, TileRole::leaf));
    EXPECT_EQ(image.pixelColor(50, 0), tones.fill(color, TileRole::leaf));
}

TEST_F(TreemapPainterTest, ATileNarrowerThanAPixelIsStillSeen)
{
    const QImage image = paint({{.rect = {10.1, 10.1, 0.3, 50}, .color = color}});
    EXPECT_EQ(image.pixelColor(10, 30), tones.fill(color, TileRole::leaf));
}

TEST_F(TreemapPainterTest, ALeafOfTwentyFourPointsHasANameOneOfTwentyThreeHasNone)
{
    const QColor fill = tones.fill(color, TileRole::leaf);
    const QImage tall = paint({{.rect = {0, 0, 150, 24}, .color = color, .label = QStringLiteral("Movies")}});
    EXPECT_TRUE(hasMarks(tall, {7, 5, 100, 16}, fill));
    const QImage low = paint({{.rect = {0, 0, 150, 23}, .color = color, .label = QStringLiteral("Movies")}});
    EXPECT_FALSE(hasMarks(low, {7, 5, 100, 16}, fill));
}

TEST_F(TreemapPainterTest, ALeafOfFortyTwoPointsHasASizeOneOfFortyOneHasNone)
{
    const QColor fill = tones.fill(color, TileRole::leaf);
    const TileFace face{.color = color, .label = QStringLiteral("Movies"), .sizeText = QStringLiteral("12 GB")};
    TileFace tall = face;
    tall.rect = {0, 0, 150, 42};
    EXPECT_TRUE(hasMarks(paint({tall}), {7, 23, 100, 14}, fill));
    TileFace low = face;
    low.rect = {0, 0, 150, 41};
    EXPECT_FALSE(hasMarks(paint({low}), {7, 23, 100, 14}, fill));
}

TEST_F(TreemapPainterTest, ANestedTileHasANameFromNineteenPointsAndASizeFromThirtyFour)
{
    const auto nested = [&](double height) {
        return TileFace{.rect = {0, 0, 150, height},
                        .color = color,
                        .role = TileRole::nested,
                        .label = QStringLiteral("Movies"),
                        .sizeText = QStringLiteral("12 GB")};
    };
    const QColor fill = tones.fill(color, TileRole::nested);
    EXPECT_FALSE(hasMarks(paint({nested(18)}), {6, 3, 100, 13}, fill));
    EXPECT_TRUE(hasMarks(paint({nested(19)}), {6, 3, 100, 13}, fill));
    EXPECT_FALSE(hasMarks(paint({nested(33)}), {6, 19, 100, 11}, fill));
    EXPECT_TRUE(hasMarks(paint({nested(34)}), {6, 19, 100, 11}, fill));
}

TEST_F(TreemapPainterTest, ANameOfWhichFewerThanEightCharactersFitIsLeftOut)
{
    const QColor fill = tones.fill(color, TileRole::leaf);
    const QImage image = paint({{.rect = {0, 0, 40, 40},
                                 .color = color,
                                 .label = QStringLiteral("DJI_0012_long_name.mov"),
                                 .sizeText = QStringLiteral("1 GB")}});
    EXPECT_FALSE(hasMarks(image, {3, 3, 34, 34}, fill));
}

TEST_F(TreemapPainterTest, AShortNameThatFitsWhollyIsShown)
{
    const QImage image = paint({{.rect = {0, 0, 40, 40}, .color = color, .label = QStringLiteral("avd")}});
    EXPECT_TRUE(hasMarks(image, {7, 5, 26, 16}, tones.fill(color, TileRole::leaf)));
}

TEST_F(TreemapPainterTest, LabelsStayInsideTheirTile)
{
    const QImage image = paint({{.rect = {20, 20, 100, 60},
                                 .color = color,
                                 .label = QStringLiteral("A name that is far too long for its tile"),
                                 .sizeText = QStringLiteral("123.45 GB")}});
    EXPECT_FALSE(hasMarks(image, {120, 0, 80, 200}, ground));
}

TEST_F(TreemapPainterTest, AFrameShowsItsSizeAtTheRightOnlyBesideTheWholeName)
{
    const QColor fill = tones.fill(color, TileRole::frame);
    const TileFace wide{.rect = {0, 0, 190, 60},
                        .color = color,
                        .role = TileRole::frame,
                        .label = QStringLiteral("Movies"),
                        .sizeText = QStringLiteral("12 GB")};
    EXPECT_TRUE(hasMarks(paint({wide}), {150, 4, 33, 14}, fill));
    TileFace narrow = wide;
    narrow.rect = {0, 0, 80, 60};
    narrow.label = QStringLiteral("Movies and more");
    EXPECT_FALSE(hasMarks(paint({narrow}), {0, 24, 80, 30}, fill));
    EXPECT_TRUE(hasMarks(paint({narrow}), {7, 4, 60, 14}, fill));
}

TEST_F(TreemapPainterTest, ASelectedTileIsHatched)
{
    TileFace face{.rect = {0, 0, 100, 100}, .color = color};
    const QColor fill = tones.fill(color, TileRole::leaf);
    EXPECT_FALSE(hasMarks(paint({face}), {10, 10, 60, 60}, fill));
    face.hatched = true;
    EXPECT_TRUE(hasMarks(paint({face}), {10, 10, 60, 60}, fill));
}

TEST_F(TreemapPainterTest, ASelectedTileOfFortyPointsHasADiscWithACheck)
{
    TileFace face{.rect = {0, 0, 40, 40}, .color = color, .hatched = true, .checked = true};
    const QColor ink = tones.ink(color);
    EXPECT_EQ(paint({face}).pixelColor(40 - 6 - 8, 40 - 6 - 14), ink);
    face.rect = {0, 0, 39.9, 40};
    EXPECT_NE(paint({face}).pixelColor(40 - 6 - 8, 40 - 6 - 14), ink);
}

TEST_F(TreemapPainterTest, ATileThatGoesWithASelectedFolderIsHatchedWithoutADisc)
{
    const TileFace face{.rect = {0, 0, 100, 100}, .color = color, .hatched = true, .checked = false};
    EXPECT_NE(paint({face}).pixelColor(100 - 6 - 8, 100 - 6 - 14), tones.ink(color));
}

TEST_F(TreemapPainterTest, TheHatchOfAFrameCoversWhatIsNestedInIt)
{
    const std::vector<TileFace> tiles{
        {.rect = {0, 0, 100, 100}, .color = color, .role = TileRole::frame, .hatched = true},
        {.rect = {5, 25, 90, 70}, .color = color, .role = TileRole::nested}};
    EXPECT_TRUE(hasMarks(paint(tiles), {10, 30, 60, 60}, tones.fill(color, TileRole::nested)));
}

TEST_F(TreemapPainterTest, TwoDevicePixelsToThePointGiveHalfPointEdges)
{
    const QImage image = paint({{.rect = {10.5, 10.5, 60, 60}, .color = color}}, 2);
    const QColor fill = tones.fill(color, TileRole::leaf);
    EXPECT_EQ(image.pixelColor(80, 21), fill);
    EXPECT_EQ(image.pixelColor(80, 20), ground);
}

TEST_F(TreemapPainterTest, DarkTilesCarryALightInk)
{
    TileTones dark(true);
    EXPECT_EQ(dark.ink(color), QColor(0xfa, 0xfa, 0xfc));
    EXPECT_EQ(dark.onInk(), QColor(0x11, 0x11, 0x11));
}

} // namespace
} // namespace corvane
