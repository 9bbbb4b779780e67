#include "shell/ui/bar_layout.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr double exact = 1e-9;

std::vector<BarPart> layOut(const std::vector<std::int64_t> &sizes, double width, double gap = 2, double rest = 0)
{
    return barLayout({.sizes = sizes, .rest = rest, .width = width, .gap = gap, .minimum = 3});
}

double end(const std::vector<BarPart> &parts)
{
    return parts.back().x + parts.back().width;
}

TEST(BarLayout, WidthsFollowTheSizes)
{
    const auto parts = layOut({600, 300, 100}, 104);
    EXPECT_EQ(parts, (std::vector<BarPart>{{0, 60}, {62, 30}, {94, 10}}));
}

TEST(BarLayout, PartsFillTheBarFromEndToEnd)
{
    for (const std::vector<std::int64_t> &sizes :
         {std::vector<std::int64_t>{1}, {7, 7, 7}, {1'000'000'000'000, 1, 1, 1, 999}, {0, 5, 0}}) {
        const auto parts = layOut(sizes, 1016);
        EXPECT_EQ(parts.front().x, 0);
        EXPECT_NEAR(end(parts), 1016, exact);
        for (std::size_t i = 1; i < parts.size(); ++i)
            EXPECT_NEAR(parts[i].x, parts[i - 1].x + parts[i - 1].width + 2, exact);
    }
}

TEST(BarLayout, NoPartIsNarrowerThanTheMinimumAndTheOthersGiveWay)
{
    const auto parts = layOut({1'000'000, 1, 0, 500'000}, 306);
    EXPECT_NEAR(parts[1].width, 3, exact);
    EXPECT_NEAR(parts[2].width, 3, exact);
    EXPECT_NEAR(parts[0].width, 2 * parts[3].width, exact);
    EXPECT_NEAR(end(parts), 306, exact);
}

TEST(BarLayout, APartThatFallsBelowTheMinimumOnlyBecauseOfOthersIsRaisedToo)
{
    // Initially 3.02 points for the second, but less once the last two get the minimum.
    const auto parts = layOut({9'690, 303, 4, 3}, 106);
    for (const BarPart &part : parts)
        EXPECT_GE(part.width, 3 - exact);
    EXPECT_NEAR(end(parts), 106, exact);
}

TEST(BarLayout, WhereNotEvenTheMinimumFitsAllPartsAreEqual)
{
    const auto parts = layOut({100, 1, 1, 1}, 10);
    for (const BarPart &part : parts)
        EXPECT_NEAR(part.width, 1, exact);
}

TEST(BarLayout, TheRestIsLeftEmptyBeforeTheLastPart)
{
    const auto parts = layOut({500, 300}, 102, 2, 200);
    EXPECT_EQ(parts, (std::vector<BarPart>{{0, 50}, {72, 30}}));
}

TEST(BarLayout, IfAllSizesAreZeroEveryPartHasTheMinimumWidth)
{
    EXPECT_EQ(layOut({0, 0}, 1016), (std::vector<BarPart>{{0, 3}, {5, 3}}));
}

TEST(BarLayout, NegativeSizesCountAsNothing)
{
    EXPECT_EQ(layOut({500, -300}, 105), layOut({500, 0}, 105));
}

TEST(BarLayout, WithoutPartsOrWidthThereIsNothing)
{
    EXPECT_TRUE(layOut({}, 100).empty());
    EXPECT_EQ(layOut({5, 6}, 0), std::vector<BarPart>(2));
}

} // namespace
} // namespace corvane
