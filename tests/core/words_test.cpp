#include "core/words/figures.h"

#include <limits>
#include <ostream>

#include <gtest/gtest.h>

#include "core/words/display_text.h"
#include "core/words/utf8.h"

namespace corvane {
namespace {

const std::string bad = "\xEF\xBF\xBD"; // U+FFFD

struct Row {
    std::int64_t bytes;
    const char *text;

    friend std::ostream &operator<<(std::ostream &out, const Row &row) { return out << row.text; }
};

class ByteCountTable : public testing::TestWithParam<Row> {};

TEST_P(ByteCountTable, IsWrittenAs)
{
    EXPECT_EQ(formatByteCount(GetParam().bytes), GetParam().text) << GetParam().bytes;
}

// The results of the system's own file size formatter.
INSTANTIATE_TEST_SUITE_P(SystemFigures, ByteCountTable,
                         testing::Values(Row{0, "Zero KB"}, Row{1, "1 byte"}, Row{999, "999 bytes"}, Row{1000, "1 KB"},
                                         Row{1023, "1 KB"}, Row{4096, "4 KB"}, Row{11999, "12 KB"},
                                         Row{900000, "900 KB"}, Row{999999, "1 MB"}, Row{1500000, "1.5 MB"},
                                         Row{12345678, "12.3 MB"}, Row{123456789, "123.5 MB"},
                                         Row{999900000, "999.9 MB"}, Row{1234567898, "1.23 GB"},
                                         Row{12345678987, "12.35 GB"}, Row{494384795648, "494.38 GB"},
                                         Row{2000398934016, "2 TB"}));

// The largest count of each unit, and the one after it.
INSTANTIATE_TEST_SUITE_P(Promotion, ByteCountTable,
                         testing::Values(Row{999'499, "999 KB"}, Row{999'500, "1 MB"},           //
                                         Row{999'949'999, "999.9 MB"}, Row{999'950'000, "1 GB"}, //
                                         Row{999'994'999'999, "999.99 GB"}, Row{999'995'000'000, "1 TB"},
                                         Row{999'994'999'999'999, "999.99 TB"}, Row{999'995'000'000'000, "1 PB"},
                                         Row{999'994'999'999'999'999, "999.99 PB"},
                                         Row{999'995'000'000'000'000, "1 EB"}));

INSTANTIATE_TEST_SUITE_P(TrailingZeros, ByteCountTable,
                         testing::Values(Row{2, "2 bytes"}, Row{1'000'000, "1 MB"}, Row{10'000'000, "10 MB"},
                                         Row{2'040'000, "2 MB"}, Row{1'000'000'000, "1 GB"},
                                         Row{1'500'000'000, "1.5 GB"}, Row{1'050'000'000, "1.05 GB"},
                                         Row{100'000'000'000, "100 GB"}, Row{1'500'000'000'000, "1.5 TB"}));

TEST(FormatByteCount, BinaryUnitsAreOf1024AndAllBytesAreCounted)
{
    useByteUnits(ByteUnits::binary);
    EXPECT_EQ(formatByteCount(0), "Zero KiB");
    EXPECT_EQ(formatByteCount(1), "1 byte");
    EXPECT_EQ(formatByteCount(1'023), "1,023 bytes");
    EXPECT_EQ(formatByteCount(1'024), "1 KiB");
    EXPECT_EQ(formatByteCount(1'536 * 1'024), "1.5 MiB");
    EXPECT_EQ(formatByteCount(1'048'575), "1 MiB");
    EXPECT_EQ(formatByteCount(std::int64_t{5} << 40), "5 TiB");
    EXPECT_EQ(formatByteCount(std::numeric_limits<std::int64_t>::max()), "8 EiB");
    useByteUnits(ByteUnits::bytes);
    EXPECT_EQ(formatByteCount(0), "0 bytes");
    EXPECT_EQ(formatByteCount(1), "1 byte");
    EXPECT_EQ(formatByteCount(12'345'678), "12,345,678 bytes");
    useByteUnits(ByteUnits::decimal);
    EXPECT_EQ(formatByteCount(1'024), "1 KB");
}

TEST(ByteCount, NegativeCountIsWrittenAsZero)
{
    EXPECT_EQ(formatByteCount(-1), "Zero KB");
    EXPECT_EQ(formatByteCount(std::numeric_limits<std::int64_t>::min()), "Zero KB");
}

TEST(ByteCount, LargestCountIsWrittenInItsUnit)
{
    EXPECT_EQ(formatByteCount(std::numeric_limits<std::int64_t>::max()), "9.22 EB");
}

TEST(Count, IsGroupedInThousands)
{
    EXPECT_EQ(formatCount(0), "0");
    EXPECT_EQ(formatCount(999), "999");
    EXPECT_EQ(formatCount(1'000), "1,000");
    EXPECT_EQ(formatCount(1'234'567), "1,234,567");
    EXPECT_EQ(formatCount(-1'000), "-1,000");
    EXPECT_EQ(formatCount(-100), "-100");
}

TEST(Utf8, OnlyShortestFormsOfCharactersAreValid)
{
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8("plain"));
    EXPECT_TRUE(isValidUtf8("\u00e4\u20ac\U0001F389\U0010FFFF"));
    for (const char *const bytes :
         {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80",
          "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"})
        EXPECT_FALSE(isValidUtf8(bytes)) << bytes;
}

TEST(Utf8, WritingAndReadingAgreeForEveryCharacter)
{
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint == 0xD800)
            codePoint = 0xE000;
        std::string text;
        appendUtf8(text, codePoint);
        const DecodedCharacter character = decodeUtf8(text, 0);
        ASSERT_TRUE(character.isValid) << static_cast<std::uint32_t>(codePoint);
        ASSERT_EQ(character.codePoint, codePoint);
        ASSERT_EQ(character.length, text.size());
    }
}

TEST(DisplayText, ControlCharactersBecomePictures)
{
    EXPECT_EQ(displayUtf8("a\tb\nc\x1b[0m\x7F"), "a␉b␊c␛[0m␡");
    EXPECT_EQ(displayUtf8(std::string_view("a\0b", 3)), "a␀b");
}

TEST(DisplayText, WhatIsNoCharacterIsReplacedByteByByte)
{
    EXPECT_EQ(displayUtf8("caf\xE9"), "caf" + bad);
    EXPECT_EQ(displayUtf8("\xC3\xA4\xC3(\xFF\xFE"), "\u00e4" + bad + "(" + bad + bad);
    EXPECT_EQ(displayUtf8("\xED\xA0\x80"), bad + bad + bad);
}

TEST(DisplayText, CharactersThatSteerTheLineAreReplaced)
{
    for (const char *const steering : {"\u0085", "\u009b", "\u2028", "\u2029", "\u202e", "\u202a", "\u2066", "\u2069",
                                       "\u200e", "\u200f", "\u061c", "\uffff"})
        EXPECT_EQ(displayUtf8(steering), bad) << steering;
}

TEST(DisplayText, NoncharactersAreReplaced)
{
    for (const char *const none : {"\uFDD0", "\uFDEF", "\uFFFE", "\U0001FFFE", "\U0010FFFF"})
        EXPECT_EQ(displayUtf8(none), bad) << none;
}

TEST(DisplayText, EverythingElseStays)
{
    const std::string text = "\u00c4rger \u6587\u4ef6 \u05e9\u05dc\u05d5\u05dd e\u0301 "
                             "\U0001F469\u200D\U0001F52C \U0001F1E9\U0001F1EA";
    EXPECT_EQ(displayUtf8(text), text);
    EXPECT_TRUE(isDisplayText(text));
    EXPECT_FALSE(isDisplayText(text + "\n"));
}

TEST(CountText, UsesTheSingularForOneAndGroupsThousands)
{
    EXPECT_EQ(formatCount(0, "file", "files"), "0 files");
    EXPECT_EQ(formatCount(1, "file", "files"), "1 file");
    EXPECT_EQ(formatCount(999, "file", "files"), "999 files");
    EXPECT_EQ(formatCount(1'000, "file", "files"), "1,000 files");
    EXPECT_EQ(formatCount(1'234'567, "file", "files"), "1,234,567 files");
}

TEST(PercentText, OfNothingIsZero)
{
    EXPECT_EQ(formatPercent(percentOf(1, 3)), "33.3%");
    EXPECT_EQ(formatPercent(percentOf(3, 3)), "100.0%");
    EXPECT_EQ(formatPercent(percentOf(0, 0)), "0.0%");
}

TEST(PathText, ShortensTheHomeFolderOnly)
{
    EXPECT_EQ(formatPath("/home/anna", "/home/anna"), "~");
    EXPECT_EQ(formatPath("/home/anna/x", "/home/anna"), "~/x");
    EXPECT_EQ(formatPath("/home/annabel/x", "/home/anna"), "/home/annabel/x");
    EXPECT_EQ(formatPath("/usr", "/"), "/usr");
    EXPECT_EQ(formatPath("/srv/big.iso", "/"), "/srv/big.iso") << "a home that is the root of the disk";
    EXPECT_EQ(formatPath("/", "/"), "/");
    EXPECT_EQ(formatPath("/home/anna/a\nb", "/home/anna"), "~/a␊b");
}

TEST(PercentOf, AWholeOfNothingIsNothing)
{
    EXPECT_EQ(percentOf(5, 0), 0);
    EXPECT_EQ(percentOf(1, 4), 25);
}

TEST(Percent, WhatLiesHalfwayGoesToTheEvenFigure)
{
    EXPECT_EQ(formatPercent(12.25), "12.2%");
    EXPECT_EQ(formatPercent(12.75), "12.8%");
    EXPECT_EQ(formatPercent(12.5, 0), "12%");
    EXPECT_EQ(formatPercent(99.96), "100.0%");
}

TEST(Ago, IsGivenInTheLargestUnitThatFits)
{
    EXPECT_EQ(formatAgo(-5), "just now");
    EXPECT_EQ(formatAgo(0), "just now");
    EXPECT_EQ(formatAgo(59), "just now");
    EXPECT_EQ(formatAgo(60), "1 minute ago");
    EXPECT_EQ(formatAgo(3'599), "59 minutes ago");
    EXPECT_EQ(formatAgo(3'600), "1 hour ago");
    EXPECT_EQ(formatAgo(7'200), "2 hours ago");
    EXPECT_EQ(formatAgo(86'399), "23 hours ago");
    EXPECT_EQ(formatAgo(86'400), "1 day ago");
    EXPECT_EQ(formatAgo(10 * 86'400), "10 days ago");
    EXPECT_EQ(formatAgo(1'000 * 86'400), "1,000 days ago");
}

} // namespace
} // namespace corvane
