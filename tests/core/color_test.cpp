#include "core/color.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Contrast, IsThatOfTheGuideline)
{
    constexpr double grey = 0x77 / 255.0;
    EXPECT_NEAR(contrast({0, 0, 0}, {1, 1, 1}), 21, 0.001);
    EXPECT_NEAR(contrast({grey, grey, grey}, {1, 1, 1}), 4.48, 0.01);
    EXPECT_EQ(contrast({1, 0, 0}, {1, 0, 0}), 1);
}

TEST(Contrast, OrderOfTheColoursDoesNotMatter)
{
    const Color pale{1, 0.9, 0.5};
    EXPECT_EQ(contrast(brandA, pale), contrast(pale, brandA));
}

} // namespace
} // namespace corvane
