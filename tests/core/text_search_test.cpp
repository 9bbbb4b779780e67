#include "core/words/text_search.h"

#include <string>

#include <gtest/gtest.h>

namespace corvane {
namespace {

bool finds(std::string_view part, std::string_view text, Casing casing = Casing::usual)
{
    return holds(searchable(text, casing), searchable(part, casing));
}

TEST(TextSearch, TakesNoAccountOfCase)
{
    EXPECT_TRUE(finds("FILM", "My film.mov"));
    EXPECT_TRUE(finds("film", "MY FILM.MOV"));
    EXPECT_TRUE(finds("ÜBER", "über uns"));
    EXPECT_TRUE(finds("фильм", "ФИЛЬМ.mov"));
    EXPECT_FALSE(finds("films", "film"));
    EXPECT_TRUE(finds("", "anything"));
    EXPECT_TRUE(finds("", ""));
    EXPECT_FALSE(finds("a", ""));
}

TEST(TextSearch, SharpSIsFoundAsTwoS)
{
    EXPECT_TRUE(finds("STRASSE", "straße.txt"));
    EXPECT_TRUE(finds("straße", "STRASSE.TXT"));
    EXPECT_TRUE(finds("STRAẞE", "straße"));
}

TEST(TextSearch, AnAccentIsFoundHoweverItIsWritten)
{
    const std::string composed = "caf\u00e9";
    const std::string decomposed = "cafe\u0301";
    for (const std::string &text : {composed, decomposed}) {
        EXPECT_TRUE(finds(composed, text + ".txt"));
        EXPECT_TRUE(finds(decomposed, text + ".txt"));
        EXPECT_TRUE(finds("CAFÉ", text));
        EXPECT_TRUE(finds("caf", text));
        EXPECT_FALSE(finds("cafe", text)) << "a letter with an accent is another letter";
    }
    EXPECT_FALSE(finds("x", "x\u0304")) << "also where there is no composed form";
    EXPECT_TRUE(finds("x", "x\u0304 x"));
}

TEST(TextSearch, TheDotsOfTheIAreThoseOfTheLanguage)
{
    EXPECT_TRUE(finds("ISTANBUL", "istanbul"));
    EXPECT_FALSE(finds("İSTANBUL", "istanbul"));
    EXPECT_TRUE(finds("İSTANBUL", "i\u0307stanbul"));

    EXPECT_TRUE(finds("İSTANBUL", "istanbul", Casing::turkic));
    EXPECT_TRUE(finds("I\u0307STANBUL", "istanbul", Casing::turkic));
    EXPECT_FALSE(finds("ISTANBUL", "istanbul", Casing::turkic));
    EXPECT_TRUE(finds("ISPARTA", "ısparta", Casing::turkic));
    EXPECT_TRUE(finds("ısparta", "ISPARTA", Casing::turkic));
}

TEST(TextSearch, WhatIsNoUtf8StandsForTheReplacementCharacter)
{
    EXPECT_TRUE(finds("caf\xe9", "CAF\xe9.txt"));
    EXPECT_TRUE(finds("\ufffd", "caf\xe9"));
    EXPECT_TRUE(finds("txt", "\xff\xfe.TXT"));
    EXPECT_FALSE(finds("é", "caf\xe9"));
}

TEST(TextSearch, ALineBreakIsACharacterLikeAnyOther)
{
    EXPECT_TRUE(finds("b\nc", "a B\nC"));
    EXPECT_EQ(searchable(std::string_view("a\0B", 3), Casing::usual), std::string("a\0b", 3));
    EXPECT_EQ(searchable(std::string_view("é\0B", 4), Casing::usual), std::string("é\0b", 4));
}

TEST(TextSearch, TheLanguageIsThatOfTheLocale)
{
    EXPECT_EQ(casingOf("tr_TR.UTF-8"), Casing::turkic);
    EXPECT_EQ(casingOf("az"), Casing::turkic);
    EXPECT_EQ(casingOf("TR-tr"), Casing::turkic);
    EXPECT_EQ(casingOf("en_US.UTF-8"), Casing::usual);
    EXPECT_EQ(casingOf("C"), Casing::usual);
    EXPECT_EQ(casingOf(""), Casing::usual);
    EXPECT_EQ(casingOf("trx"), Casing::usual);
}

} // namespace
} // namespace corvane
