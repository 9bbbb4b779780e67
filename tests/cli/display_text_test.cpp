#include "cli/display_text.h"

#include <gtest/gtest.h>

#include "cli/size_bar.h"
#include "cli/utf8.h"

namespace corvane {

namespace {

const std::string bad = "\xEF\xBF\xBD";

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
    EXPECT_EQ(displayText("a\tb\nc\x1b[0m\x7F"), "a␉b␊c␛[0m␡");
    EXPECT_EQ(displayText(std::string_view("a\0b", 3)), "a␀b");
}

TEST(DisplayText, WhatIsNoCharacterIsReplacedByteByByte)
{
    EXPECT_EQ(displayText("caf\xE9"), "caf" + bad);
    EXPECT_EQ(displayText("\xC3\xA4\xC3(\xFF\xFE"), "\u00e4" + bad + "(" + bad + bad);
    EXPECT_EQ(displayText("\xED\xA0\x80"), bad + bad + bad);
}

TEST(DisplayText, CharactersThatSteerTheLineAreReplaced)
{
    for (const char *const steering : {"\u0085", "\u009b", "\u2028", "\u2029", "\u202e", "\u202a", "\u2066", "\u2069",
                                       "\u200e", "\u200f", "\u061c", "\uffff"})
        EXPECT_EQ(displayText(steering), bad) << steering;
}

TEST(DisplayText, EverythingElseStays)
{
    const std::string text = "\u00c4rger \u6587\u4ef6 \u05e9\u05dc\u05d5\u05dd e\u0301 "
                             "\U0001F469\u200D\U0001F52C \U0001F1E9\U0001F1EA";
    EXPECT_EQ(displayText(text), text);
}

TEST(DisplayWidth, CountsColumns)
{
    EXPECT_EQ(displayWidth(""), 0u);
    EXPECT_EQ(displayWidth("plain"), 5u);
    EXPECT_EQ(displayWidth("\u00e4\u00f6\u00fc"), 3u);
    EXPECT_EQ(displayWidth("\u6587\u4ef6"), 4u);
    EXPECT_EQ(displayWidth("\ud55c\uae00"), 4u);
    EXPECT_EQ(displayWidth("\uff21"), 2u);
    EXPECT_EQ(displayWidth("e\u0301"), 1u);
    EXPECT_EQ(displayWidth("\u0e01\u0e34"), 1u);
    EXPECT_EQ(displayWidth("\U0001F389"), 2u);
    EXPECT_EQ(displayWidth("\u2764\uFE0F"), 2u);
    EXPECT_EQ(displayWidth("\U0001F44D\U0001F3FD"), 2u);
    EXPECT_EQ(displayWidth("\U0001F469\u200D\U0001F52C"), 2u);
    EXPECT_EQ(displayWidth("\U0001F469\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"), 2u);
    EXPECT_EQ(displayWidth("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"), 4u);
    EXPECT_EQ(displayWidth("a\u200bb"), 2u);
}

TEST(Elided, NeverTakesMoreThanTheRoomAndKeepsWhatFits)
{
    EXPECT_EQ(elided("plain", 5), "plain");
    EXPECT_EQ(elided("plain", 4), "pla…");
    EXPECT_EQ(elided("plain", 1), "…");
    EXPECT_EQ(elided("plain", 0), "");
    EXPECT_EQ(elided("\u6587\u4ef6\u540d", 5), "\u6587\u4ef6…");
    EXPECT_EQ(elided("\u6587\u4ef6\u540d", 4), "\u6587…");
    EXPECT_EQ(elided("e\u0301e\u0301e\u0301", 2), "e\u0301…");
    for (std::size_t columns = 0; columns < 12; ++columns)
        EXPECT_LE(displayWidth(elided("\u6587a\U0001F469\u200D\U0001F52Cb\u4ef6", columns)), columns);
}

TEST(ElidedAtFront, KeepsTheEnd)
{
    EXPECT_EQ(elidedAtFront("~/a/b", 5), "~/a/b");
    EXPECT_EQ(elidedAtFront("~/a/b", 4), "…a/b");
    EXPECT_EQ(elidedAtFront("\u6587\u4ef6", 3), "…\u4ef6");
    EXPECT_EQ(elidedAtFront("abc", 0), "");
}

TEST(Aligned, PadsByColumnsNotBytes)
{
    EXPECT_EQ(rightAligned("\u6587", 4), "  \u6587");
    EXPECT_EQ(leftAligned("\u00e4", 3), "\u00e4  ");
    EXPECT_EQ(rightAligned("longer", 3), "longer");
}

TEST(CountText, UsesTheSingularForOneAndGroupsThousands)
{
    EXPECT_EQ(countText(0, "file", "files"), "0 files");
    EXPECT_EQ(countText(1, "file", "files"), "1 file");
    EXPECT_EQ(countText(999, "file", "files"), "999 files");
    EXPECT_EQ(countText(1'000, "file", "files"), "1,000 files");
    EXPECT_EQ(countText(1'234'567, "file", "files"), "1,234,567 files");
}

TEST(PercentText, OfNothingIsZero)
{
    EXPECT_EQ(percentText(1, 3), "33.3%");
    EXPECT_EQ(percentText(3, 3), "100.0%");
    EXPECT_EQ(percentText(0, 0), "0.0%");
}

TEST(PathText, ShortensTheHomeFolderOnly)
{
    EXPECT_EQ(pathText("/home/anna", "/home/anna"), "~");
    EXPECT_EQ(pathText("/home/anna/x", "/home/anna"), "~/x");
    EXPECT_EQ(pathText("/home/annabel/x", "/home/anna"), "/home/annabel/x");
    EXPECT_EQ(pathText("/usr", "/"), "/usr");
}

TEST(SizeBar, IsAsWideAsAskedAndShowsTheSmallest)
{
    for (const double fraction : {0.0, 0.0001, 0.3, 0.5, 0.999, 1.0, 1.5, -1.0})
        EXPECT_EQ(displayWidth(sizeBar(fraction, 10)), 10u) << fraction;
    EXPECT_EQ(sizeBar(0, 4), "    ");
    EXPECT_EQ(sizeBar(0.0001, 4), "▏   ");
    EXPECT_EQ(sizeBar(0.5, 4), "██  ");
    EXPECT_EQ(sizeBar(1, 4), "████");
    EXPECT_EQ(sizeBar(0.375, 4), "█▌  ");
}

} // namespace

} // namespace corvane
