#include "core/told_size.h"

#include <string>

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

TEST(ToldSize, FiguresAreReadToTheirLastDigit)
{
    EXPECT_EQ(toldSize("0.1K", 1'000), 100);
    EXPECT_EQ(toldSize("4.35G", 1'000), 4'350'000'000);
    EXPECT_EQ(toldSize("999.999999999G", 1'000), 999'999'999'999);
    EXPECT_EQ(toldSize(".5K", 1'000), 500);
    EXPECT_EQ(toldSize("5.K", 1'000), 5'000);
    EXPECT_EQ(toldSize("1.2.3K", 1'000), std::nullopt);
}

TEST(ToldSize, ExponentsAreReadAndALoneEIsAUnit)
{
    EXPECT_EQ(toldSize("1e+03MB", 1'000), 1'000'000'000);
    EXPECT_EQ(toldSize("1.5e3 kB", 1'000), 1'500'000);
    EXPECT_EQ(toldSize("1500e-3k", 1'000), 1'500);
    EXPECT_EQ(toldSize("0.25e", 1'000), 250'000'000'000'000'000);
    EXPECT_EQ(toldSize("1e99999999999999K", 1'000), std::nullopt);
    EXPECT_EQ(toldSize("0e400K", 1'000), std::nullopt);
}

TEST(ToldSize, AnOverflowIsRejected)
{
    EXPECT_EQ(toldSize(std::string(400, '9') + "K", 1'000), std::nullopt);
    EXPECT_EQ(toldSize("." + std::string(400, '9') + "K", 1'000), std::nullopt);
}

TEST(ToldSize, AnInvalidSizeIsRejected)
{
    for (const char *text : {"", "GB", "12", "-1GB", "12 xB", "nan", "infB", "9999999999E"})
        EXPECT_EQ(toldSize(text, 1'000), std::nullopt) << text;
}

} // namespace
} // namespace corvane
