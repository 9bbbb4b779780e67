#include "cli/terminal_text.h"

#include <gtest/gtest.h>

#include "cli/size_bar.h"

namespace corvane {

namespace {

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

TEST(DisplayWidth, AnEmojiTakesTwoColumnsHoweverManyCharactersItIsMadeOf)
{
    for (const char *const emoji : {
             "\U0001F600",                                                             // a face
             "\u2764\uFE0F",                                                           // a heart shown as an emoji
             "\u00A9\uFE0F",                                                           // a sign shown as an emoji
             "1\uFE0F\u20E3",                                                          // a keycap
             "\U0001F44B\U0001F3FF",                                                   // a hand with a skin tone
             "\U0001F1FA\U0001F1F3",                                                   // a flag of two letters
             "\U0001F3F3\uFE0F\u200D\U0001F308",                                       // a flag of two joined emoji
             "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F", // a flag of tag characters
             "\U0001F469\U0001F3FD\u200D\U0001F680",                                   // a profession with a skin tone
             "\U0001F9D1\u200D\U0001F9D1\u200D\U0001F9D2",                             // a family
             "\u26F9\uFE0F\u200D\u2640\uFE0F",                                         // of text symbols only
             "\U0001FAE8",                                                             // from a recent Unicode version
         }) {
        EXPECT_EQ(displayWidth(emoji), 2u) << emoji;
        EXPECT_EQ(displayWidth(std::string(emoji) + emoji), 4u) << emoji;
        EXPECT_EQ(elided(std::string("a") + emoji + "b", 2), "a\u2026") << "an emoji is never cut";
    }
}

TEST(DisplayWidth, SignsTakeOneColumnUnlessAskedForAsEmoji)
{
    EXPECT_EQ(displayWidth("\u2764"), 1u);
    EXPECT_EQ(displayWidth("\u00A9"), 1u);
    EXPECT_EQ(displayWidth("\u2764\uFE0E"), 1u);
    EXPECT_EQ(displayWidth("a\uFE0F"), 1u) << "a letter has no other form";
    EXPECT_EQ(displayWidth("12#"), 3u);
}

TEST(DisplayWidth, MarksTakeColumnsWhereTerminalsGiveThemSome)
{
    EXPECT_EQ(displayWidth("\u0915\u093E"), 2u);       // beside its letter
    EXPECT_EQ(displayWidth("\u0915\u0941"), 1u);       // below its letter
    EXPECT_EQ(displayWidth("\u1112\u1161\u11AB"), 2u); // a syllable of three letters
    EXPECT_EQ(displayWidth("o\u0302\u0323\u0308"), 1u);
}

TEST(Wrapped, BreaksBetweenWordsAndGoesOnWhereItBegan)
{
    EXPECT_EQ(wrapped("one two three", 80, 0), "one two three");
    EXPECT_EQ(wrapped("one two three", 7, 0), "one two\nthree");
    EXPECT_EQ(wrapped("one two three", 9, 2), "one two\n  three");
    EXPECT_EQ(wrapped("a longer word", 3, 0), "a\nlonger\nword");
    EXPECT_EQ(wrapped("\u6587\u4ef6 \u6587\u4ef6", 8, 0), "\u6587\u4ef6\n\u6587\u4ef6");
    EXPECT_EQ(wrapped("", 5, 2), "");
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
