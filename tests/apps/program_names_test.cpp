#include "apps/program_names.h"

#include <string>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(ProgramName, OfAnAppImageHasNoExtension)
{
    EXPECT_EQ(programName("/home/u/Chart-1.2.AppImage"), "Chart-1.2");
    EXPECT_EQ(programName("chart.appimage"), "chart");
    EXPECT_EQ(programName("/usr/bin/chart.sh"), "chart.sh");
    EXPECT_EQ(programName(""), "");
}

TEST(WithoutVersion, EndsBeforeTheFirstVersionOrArchitecture)
{
    EXPECT_EQ(withoutVersion("Chart-1.2.3-x86_64"), "Chart");
    EXPECT_EQ(withoutVersion("Sea_Chart v2"), "Sea_Chart");
    EXPECT_EQ(withoutVersion("Sea Chart-V2"), "Sea Chart");
    EXPECT_EQ(withoutVersion("chart-Linux-beta"), "chart");
    EXPECT_EQ(withoutVersion("chart-aarch64"), "chart");
}

TEST(WithoutVersion, KeepsANameWithoutOne)
{
    for (const char *const name : {"", "chart", "sea-chart", "chart2", "chart.2", "sea-very-chart", "-2", "2-chart"})
        EXPECT_EQ(withoutVersion(name), name) << name;
}

TEST(BearsName, IgnoresCaseAndWordSeparators)
{
    EXPECT_TRUE(bearsName("signal-deck", "Signal Deck"));
    EXPECT_TRUE(bearsName("SignalDeck", "signal_deck"));
    EXPECT_TRUE(bearsName("Signal.Deck", "SIGNALDECK"));
}

TEST(BearsName, AllowsMoreOnlyAfterASeparatorOrAsDigits)
{
    EXPECT_TRUE(bearsName("signal-deck-2.1-linux", "Signal Deck"));
    EXPECT_TRUE(bearsName("Kite2", "Kite"));
    EXPECT_FALSE(bearsName("Games", "Game"));
    EXPECT_FALSE(bearsName("my-kite", "kite"));
    EXPECT_FALSE(bearsName("signal", "Signal Deck"));
}

TEST(BearsName, NeedsThreeLetters)
{
    EXPECT_FALSE(bearsName("go", "Go"));
    EXPECT_FALSE(bearsName("g-o", "g - o"));
    EXPECT_FALSE(bearsName("anything", ""));
    EXPECT_TRUE(bearsName("vim", "Vim"));
}

TEST(VersionIn, IsTheFirstPartThatLooksLikeOne)
{
    EXPECT_EQ(versionIn("Chart-1.2.3-x86_64"), "1.2.3");
    EXPECT_EQ(versionIn("Chart_v2.0"), "2.0");
    EXPECT_EQ(versionIn("Chart V3.1 4.0"), "3.1");
    EXPECT_EQ(versionIn("Chart-1.0-rc1"), "1.0");
}

TEST(VersionIn, IsEmptyWhereNoPartLooksLikeOne)
{
    for (const char *const name : {"", "Chart", "Chart-2", "Chart-x86_64", "Chart-1.", "Chart-1.$(x)", "Chart-.5"})
        EXPECT_EQ(versionIn(name), "") << name;
    EXPECT_EQ(versionIn("Chart-1." + std::string(63, '0')), "");
}

} // namespace
} // namespace corvane
