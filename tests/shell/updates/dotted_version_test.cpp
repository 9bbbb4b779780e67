#include "shell/updates/dotted_version.h"

#include <gtest/gtest.h>

#include <QString>

namespace corvane {
namespace {

DottedVersion version(const char *text)
{
    const auto parsed = DottedVersion::parse(QString::fromLatin1(text));
    EXPECT_TRUE(parsed) << text;
    return parsed.value_or(DottedVersion());
}

TEST(DottedVersion, NumbersAreComparedAsNumbers)
{
    EXPECT_LT(version("1.9"), version("1.10"));
    EXPECT_LT(version("9999"), version("10200"));
    EXPECT_GT(version("2"), version("1.99.99"));
    EXPECT_EQ(version("010200"), version("10200"));
}

TEST(DottedVersion, MissingNumbersAreZero)
{
    EXPECT_EQ(version("1.2"), version("1.2.0.0"));
    EXPECT_LT(version("1.2"), version("1.2.0.1"));
    EXPECT_EQ(version("0"), version("0.0"));
    EXPECT_LT(version("0"), version("0.0.1"));
}

TEST(DottedVersion, NumbersMayBeLongerThanAnyInteger)
{
    EXPECT_LT(version("18446744073709551615"), version("18446744073709551616"));
    EXPECT_LT(version("2"), version("99999999999999999999999999999999999999999999"));
    EXPECT_LT(version("1.99999999999999999999998"), version("1.99999999999999999999999"));
}

TEST(DottedVersion, OtherTextsAreNoVersions)
{
    for (const char *text : {"", ".", "1.", ".1", "1..2", "-1", "+1", "1e9", "1.2b3", " 1", "1 ", "0x10", "v1"})
        EXPECT_FALSE(DottedVersion::parse(QString::fromLatin1(text))) << text;
    EXPECT_FALSE(DottedVersion::parse(QStringLiteral("١٢"))) << "digits of another script";
    EXPECT_TRUE(DottedVersion::parse(QString(256, QLatin1Char('9'))));
    EXPECT_FALSE(DottedVersion::parse(QString(257, QLatin1Char('9'))));
}

TEST(DottedVersion, LeadingOneIsReadOfTheNameOfAKernel)
{
    EXPECT_EQ(DottedVersion::leading(QStringLiteral("6.1.0-13-amd64")), version("6.1"));
    EXPECT_EQ(DottedVersion::leading(QStringLiteral("6.1.")), version("6.1"));
    EXPECT_FALSE(DottedVersion::leading(QStringLiteral("rolling")));
    EXPECT_FALSE(DottedVersion::leading(QString()));
}

} // namespace
} // namespace corvane
