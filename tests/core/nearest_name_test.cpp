#include "core/nearest_name.h"

#include <array>

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::optional<std::string> nearest(std::string_view word)
{
    static const std::array<std::string, 7> names{"scan",    "map",       "breakdown", "snapshots",
                                                  "cleanup", "protected", "remove"};
    return nearestName(word, names);
}

TEST(NearestName, AnswersEachKindOfSlip)
{
    EXPECT_EQ(nearest("scn"), "scan");
    EXPECT_EQ(nearest("scaan"), "scan");
    EXPECT_EQ(nearest("scam"), "scan");
    EXPECT_EQ(nearest("remvoe"), "remove");
    EXPECT_EQ(nearest("brekdwon"), "breakdown");
    EXPECT_EQ(nearest("clean-up"), "cleanup");
}

TEST(NearestName, AnswersABeginning)
{
    EXPECT_EQ(nearest("r"), "remove");
    EXPECT_EQ(nearest("snap"), "snapshots");
    EXPECT_EQ(nearest("s"), "scan"); // the first of two
}

TEST(NearestName, CapitalLettersCountAsSmallOnes)
{
    EXPECT_EQ(nearest("SCAN"), "scan");
    EXPECT_EQ(nearest("Remoev"), "remove");
}

TEST(NearestName, OfTwoTheNearerIsAnswered)
{
    const std::array<std::string, 2> names{"abcdefghij", "abcdefghxy"};
    EXPECT_EQ(nearestName("abcdefgxy", names), "abcdefghxy");
}

TEST(NearestName, WhatIsFarFromEveryNameHasNone)
{
    EXPECT_EQ(nearest(""), std::nullopt);
    EXPECT_EQ(nearest("delete"), std::nullopt);
    EXPECT_EQ(nearest("xyz"), std::nullopt);
    EXPECT_EQ(nearest("ax"), std::nullopt);
    EXPECT_EQ(nearest(std::string(100'000, 's')), std::nullopt);
    EXPECT_EQ(nearestName("scan", {}), std::nullopt);
}

} // namespace
} // namespace corvane
