#include "core/told_size.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(ToldSize, UnitsAreThoseOfTheTool)
{
    EXPECT_EQ(toldSize("34.7GB (90%)", 1'000), 34'700'000'000);
    EXPECT_EQ(toldSize("512.0M in the file system.", 1'024), 536'870'912);
    EXPECT_EQ(toldSize("250kB", 1'000), 250'000);
    EXPECT_EQ(toldSize("0B", 1'000), 0);
    EXPECT_EQ(toldSize("12 bytes", 1'000), 12);
    EXPECT_EQ(toldSize("1.5 MB", 1'000), 1'500'000);
    EXPECT_EQ(toldSize("1.5\xC2\xA0GB", 1'000), 1'500'000'000);
}

TEST(ToldSize, WhatIsNoSizeIsNone)
{
    for (const char *text : {"", "GB", "12", "-1GB", "12 xB", "nan", "infB", "9999999999E"})
        EXPECT_EQ(toldSize(text, 1'000), std::nullopt) << text;
}

} // namespace
} // namespace corvane
