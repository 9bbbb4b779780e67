#include "map/ui/tile_info_pill.h"

#include <gtest/gtest.h>

#include "support/tree.h"

namespace corvane {
namespace {

using test::addFile;
using test::addFolder;
using test::addPackage;
using test::makeRoot;

QString info(const test::NodePtr &node, std::int64_t size, double percent)
{
    return TileInfoPill(TreemapTile{.node = node, .label = "label", .size = size, .rect = {}, .color = {}})
        .info(percent);
}

TEST(TileInfoPill, AFileShowsSizeAndShareOnly)
{
    EXPECT_EQ(info(addFile(makeRoot(), "a.mov", 1), 2'180'000'000, 1.389), QStringLiteral("2.18 GB · 1.4%"));
}

TEST(TileInfoPill, AFolderSaysThatItOpens)
{
    EXPECT_EQ(info(addFolder(makeRoot(), "Drone Footage"), 27'880'000'000, 4.34),
              QStringLiteral("27.88 GB · 4.3% · click to open"));
}

TEST(TileInfoPill, APackageSaysThatItOpens)
{
    EXPECT_EQ(info(addPackage(makeRoot(), "X.app", 1), 1'000'000, 100),
              QStringLiteral("1 MB · 100.0% · click to open"));
}

TEST(TileInfoPill, AnAggregateShowsSizeAndShareOnly)
{
    EXPECT_EQ(info(nullptr, 320'000'000, 0.04), QStringLiteral("320 MB · 0.0%"));
}

TEST(TileInfoPill, AShareHalfwayBetweenTwoGoesToTheEvenOne)
{
    EXPECT_EQ(info(nullptr, 1'000'000, 12.25), QStringLiteral("1 MB · 12.2%"));
    EXPECT_EQ(info(nullptr, 1'000'000, 12.75), QStringLiteral("1 MB · 12.8%"));
}

TEST(TileInfoPill, TheTitleIsTheLabelAsText)
{
    const TileInfoPill pill(TreemapTile{.node = nullptr, .label = "broken\xff", .size = 1, .rect = {}, .color = {}});
    EXPECT_EQ(pill.title, QStringLiteral("broken\uFFFD"));
}

const QRectF bounds(0, 0, 700, 600);
const QSizeF panel(200, 50);

TEST(TileInfoPillPlace, StandsFourteenRightAndEighteenBelowThePointer)
{
    EXPECT_EQ(TileInfoPill::place({100, 100}, panel, bounds), QPointF(114, 118));
}

TEST(TileInfoPillPlace, FlipsToTheLeftAtTheRightEdge)
{
    EXPECT_EQ(TileInfoPill::place({600, 100}, panel, bounds), QPointF(600 - 14 - 200, 118));
}

TEST(TileInfoPillPlace, FlipsUpwardsAtTheBottom)
{
    EXPECT_EQ(TileInfoPill::place({100, 580}, panel, bounds), QPointF(114, 580 - 18 - 50));
}

TEST(TileInfoPillPlace, StaysInsideWhereNeitherSideHasRoom)
{
    const QPointF place = TileInfoPill::place({110, 30}, panel, {0, 0, 220, 60});
    EXPECT_EQ(place, QPointF(20, 10));
}

} // namespace
} // namespace corvane
