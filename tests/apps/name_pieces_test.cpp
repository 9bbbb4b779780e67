#include "apps/name_pieces.h"

#include <string>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(LeadingPieces, AreTheFirstComponentsWithoutEmptyOnes)
{
    EXPECT_EQ(leadingPieces("com.sea.chart.helper", 3), "com.sea.chart");
    EXPECT_EQ(leadingPieces("com.sea", 3), "com.sea");
    EXPECT_EQ(leadingPieces("com", 2), "com");
    EXPECT_EQ(leadingPieces(".com..sea.", 2), "com.sea");
    EXPECT_EQ(leadingPieces("com.sea", 0), "");
    EXPECT_EQ(leadingPieces("...", 2), "");
    EXPECT_EQ(leadingPieces("", 2), "");
}

TEST(PlainName, HasOnlyLettersDigitsAndThePunctuationOfPackages)
{
    for (const char *const name : {"chart", "Chart2", "7zip", "libstdc++6", "sea-chart_2.1", "a@b"})
        EXPECT_TRUE(isPlainName(name)) << name;
    for (const char *const name :
         {"", "-chart", ".chart", "+chart", "a b", "a/b", "a;b", "a$b", "a\n", "\xc3\xa9", "a~"})
        EXPECT_FALSE(isPlainName(name)) << name;
}

TEST(PlainName, IsNoLongerThanAFileName)
{
    EXPECT_TRUE(isPlainName(std::string(255, 'a')));
    EXPECT_FALSE(isPlainName(std::string(256, 'a')));
}

TEST(Version, IsAPlainNameOfAtMost64Bytes)
{
    EXPECT_TRUE(isVersion("5.4.1-rc2"));
    EXPECT_TRUE(isVersion(std::string(64, '1')));
    EXPECT_FALSE(isVersion(std::string(65, '1')));
    EXPECT_FALSE(isVersion(""));
    EXPECT_FALSE(isVersion("$(rm)"));
}

TEST(WithoutControls, EachControlCharacterBecomesASpace)
{
    EXPECT_EQ(withoutControls("a\nb\tc\x1b[2Kd\x7f"), "a b c [2Kd ");
    EXPECT_EQ(withoutControls("Caf\xc3\xa9 \xff"), "Caf\xc3\xa9 \xff");
    EXPECT_EQ(withoutControls(""), "");
}

TEST(ReverseDomainName, HasThreeComponentsOrMore)
{
    EXPECT_TRUE(isReverseDomainName("org.sea.Chart"));
    EXPECT_TRUE(isReverseDomainName("org.sea.Chart.Helper"));
    for (const char *const name : {"org.sea", "chart", "org.sea.", "org..sea.chart", ".org.sea.chart", "org.sea.a b"})
        EXPECT_FALSE(isReverseDomainName(name)) << name;
}

} // namespace
} // namespace corvane
