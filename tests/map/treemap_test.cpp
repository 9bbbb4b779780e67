#include "map/treemap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::Each;

constexpr Rect nothing{};

double sumOf(const std::vector<double> &weights)
{
    return std::accumulate(weights.begin(), weights.end(), 0.0);
}

TEST(Treemap, NoWeightsGiveNoRectangles)
{
    EXPECT_TRUE(Treemap::squarify({}, {0, 0, 100, 100}).empty());
}

TEST(Treemap, OneWeightFillsTheRectangle)
{
    const std::vector<double> weights{7};
    EXPECT_EQ(Treemap::squarify(weights, {3, 4, 200, 100}), (std::vector<Rect>{{3, 4, 200, 100}}));
}

TEST(Treemap, WeightsThatSumToNothingGiveZeroRectangles)
{
    const std::vector<double> weights{0, 0, 0};
    EXPECT_THAT(Treemap::squarify(weights, {0, 0, 100, 100}), testing::ElementsAre(nothing, nothing, nothing));
    const std::vector<double> negative{1, -2};
    EXPECT_THAT(Treemap::squarify(negative, {0, 0, 100, 100}), testing::ElementsAre(nothing, nothing));
}

TEST(Treemap, ARectangleOfZeroWidthGivesZeroRectanglesForEveryWeight)
{
    const std::vector<double> weights{3, 2, 1};
    EXPECT_THAT(Treemap::squarify(weights, {5, 5, 0, 100}), testing::ElementsAre(nothing, nothing, nothing));
}

TEST(Treemap, ARectangleWithoutPositiveSidesGivesZeroRectangles)
{
    const std::vector<double> weights{3, 2, 1};
    for (const Rect &rect : {Rect{0, 0, 100, 0}, Rect{0, 0, -1, 100}, Rect{0, 0, 100, -1},
                             Rect{0, 0, std::numeric_limits<double>::quiet_NaN(), 100}}) {
        const auto placed = Treemap::squarify(weights, rect);
        ASSERT_EQ(placed.size(), 3u);
        EXPECT_THAT(placed, Each(nothing));
    }
}

TEST(Treemap, WeightsThatAreNotFiniteGiveZeroRectangles)
{
    const std::vector<double> weights{std::numeric_limits<double>::infinity(), 1};
    EXPECT_THAT(Treemap::squarify(weights, {0, 0, 100, 100}), Each(nothing));
}

// The example in the paper on squarified treemaps: 6 6 4 3 2 2 1 in a rectangle of 6 by 4.
TEST(Treemap, LaysOutTheTextbookExample)
{
    const std::vector<double> weights{6, 6, 4, 3, 2, 2, 1};
    const auto placed = Treemap::squarify(weights, {0, 0, 6, 4});
    const std::vector<Rect> expected{
        {0, 0, 3, 2},
        {0, 2, 3, 2},
        {3, 0, 12.0 / 7, 7.0 / 3},
        {3 + 12.0 / 7, 0, 9.0 / 7, 7.0 / 3},
        {3, 7.0 / 3, 1.2, 5.0 / 3},
        {4.2, 7.0 / 3, 1.2, 5.0 / 3},
        {5.4, 7.0 / 3, 0.6, 5.0 / 3},
    };
    ASSERT_EQ(placed.size(), expected.size());
    for (std::size_t i = 0; i < placed.size(); ++i) {
        EXPECT_NEAR(placed[i].x, expected[i].x, 1e-12) << i;
        EXPECT_NEAR(placed[i].y, expected[i].y, 1e-12) << i;
        EXPECT_NEAR(placed[i].width, expected[i].width, 1e-12) << i;
        EXPECT_NEAR(placed[i].height, expected[i].height, 1e-12) << i;
    }
}

TEST(Treemap, AWideRectangleStartsWithAColumnAtTheLeft)
{
    const std::vector<double> weights{1, 1};
    EXPECT_EQ(Treemap::squarify(weights, {0, 0, 200, 100}), (std::vector<Rect>{{0, 0, 100, 100}, {100, 0, 100, 100}}));
}

TEST(Treemap, ATallRectangleStartsWithAStripAtTheTop)
{
    const std::vector<double> weights{1, 1};
    EXPECT_EQ(Treemap::squarify(weights, {0, 0, 100, 200}), (std::vector<Rect>{{0, 0, 100, 100}, {0, 100, 100, 100}}));
}

TEST(Treemap, ASquareStartsWithAColumn)
{
    const std::vector<double> weights{3, 1};
    EXPECT_EQ(Treemap::squarify(weights, {0, 0, 100, 100}), (std::vector<Rect>{{0, 0, 75, 100}, {75, 0, 25, 100}}));
}

// With one area of 2 along a side of 2 the worst ratio is 2; with two of them it is 2 again.
TEST(Treemap, ATieAdmitsTheNewArea)
{
    const std::vector<double> weights{2, 2, 2};
    const auto placed = Treemap::squarify(weights, {0, 0, 3, 2});
    EXPECT_EQ(placed[0], (Rect{0, 0, 2, 1}));
    EXPECT_EQ(placed[1], (Rect{0, 1, 2, 1}));
    EXPECT_EQ(placed[2], (Rect{2, 0, 1, 2}));
}

TEST(Treemap, AWeightOfZeroBecomesATinyAreaAndIsNotDropped)
{
    const std::vector<double> weights{100, 0};
    const auto placed = Treemap::squarify(weights, {0, 0, 100, 100});
    ASSERT_EQ(placed.size(), 2u);
    EXPECT_EQ(placed[0], (Rect{0, 0, 100, 100}));
    // The first weight has taken the whole rectangle, so there is no side left to place the second along.
    EXPECT_EQ(placed[1], nothing);

    const std::vector<double> between{100, 0, 100};
    const auto three = Treemap::squarify(between, {0, 0, 200, 100});
    EXPECT_NEAR(three[1].width * three[1].height, 0.0001, 1e-12);
    EXPECT_GT(three[1].width, 0);
}

TEST(Treemap, RectanglesKeepTheOrderOfTheWeights)
{
    const std::vector<double> weights{1, 5, 3};
    const auto placed = Treemap::squarify(weights, {0, 0, 90, 100});
    for (std::size_t i = 0; i < weights.size(); ++i)
        EXPECT_NEAR(placed[i].width * placed[i].height, 1000 * weights[i], 1e-9);
}

TEST(Treemap, CoordinatesAreNotRounded)
{
    const std::vector<double> weights{2, 1};
    const auto placed = Treemap::squarify(weights, {0, 0, 100, 100});
    EXPECT_EQ(placed[0].width, 20000.0 / 3 / 100);
    EXPECT_EQ(placed[1].x, placed[0].width);
}

void expectAreasInsideAndDisjoint(unsigned seed)
{
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> counts(1, 60);
    std::uniform_real_distribution<double> sides(40, 2000);
    std::exponential_distribution<double> sizes(1);
    std::vector<double> weights(static_cast<std::size_t>(counts(random)));
    std::generate(weights.begin(), weights.end(), [&] { return 0.01 + sizes(random); });
    std::sort(weights.rbegin(), weights.rend());
    const Rect rect{sides(random), -sides(random), sides(random), sides(random)};

    const auto placed = Treemap::squarify(weights, rect);

    ASSERT_EQ(placed.size(), weights.size());
    const double whole = rect.width * rect.height;
    const double sum = sumOf(weights);
    constexpr double slack = 1e-6;
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const Rect &a = placed[i];
        EXPECT_NEAR(a.width * a.height, weights[i] / sum * whole, whole * 1e-12) << i;
        EXPECT_GE(a.x, rect.x - slack);
        EXPECT_GE(a.y, rect.y - slack);
        EXPECT_LE(a.x + a.width, rect.x + rect.width + slack);
        EXPECT_LE(a.y + a.height, rect.y + rect.height + slack);
        for (std::size_t j = 0; j < i; ++j) {
            const Rect &b = placed[j];
            const double overlapX = std::min(a.x + a.width, b.x + b.width) - std::max(a.x, b.x);
            const double overlapY = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
            EXPECT_FALSE(overlapX > slack && overlapY > slack) << i << " over " << j;
        }
    }
}

TEST(Treemap, AreasAreProportionalInsideTheRectangleAndDisjoint)
{
    for (unsigned seed = 0; seed < 200; ++seed)
        expectAreasInsideAndDisjoint(seed);
}

} // namespace
} // namespace corvane
