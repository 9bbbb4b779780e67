#include "core/words/lower_case.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(LowerCase, EveryAlphabetWithCapitalsThatIsKnownHasSmallLetters)
{
    EXPECT_EQ(lowerCase("Com.Foo.APP-2"), "com.foo.app-2");
    EXPECT_EQ(lowerCase("ÀÖØÞĀĮĲĶĹŇŊŶŸŹŽȘẀẔẠỸ"), "àöøþāįĳķĺňŋŷÿźžșẁẕạỹ");
    EXPECT_EQ(lowerCase("ΆΈΊΌΎΏΑΡΣΫ"), "άέίόύώαρσϋ");
    EXPECT_EQ(lowerCase("ЀЏАЯѠҀҊҾӁӐԮ"), "ѐџаяѡҁҋҿӂӑԯ");
}

TEST(LowerCase, WhatIsNoCapitalStays)
{
    const std::string text = "abc ßÿŉĸ×÷ ﬁ漢字 🙂 αω я";
    EXPECT_EQ(lowerCase(text), text);
    EXPECT_EQ(lowerCase(""), "");
}

TEST(LowerCase, BytesThatAreNoUtf8Stay)
{
    EXPECT_EQ(lowerCase("A\xff\xC3"
                        "B\xC0\x80"),
              "a\xff\xC3"
              "b\xC0\x80");
}

} // namespace
} // namespace corvane
