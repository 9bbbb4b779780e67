#include "platform/text.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(Text, IsTrimmedOfBlanksAtBothEndsAlone)
{
    EXPECT_EQ(trimmed(" \t a b\r\n"), "a b");
    EXPECT_EQ(trimmed("a"), "a");
    EXPECT_EQ(trimmed(" \n"), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(Text, IsTakenApartAtEveryMark)
{
    const auto parts = [](std::string_view text) {
        std::vector<std::string> taken;
        while (!text.empty())
            taken.emplace_back(takePart(text, ':'));
        return taken;
    };
    EXPECT_EQ(parts("a:b"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(parts(":a::b:"), (std::vector<std::string>{"", "a", "", "b"}));
    EXPECT_EQ(parts("a"), std::vector<std::string>{"a"});
    EXPECT_EQ(parts(""), std::vector<std::string>{});
}

TEST(Text, ShellQuotesEndAtTheNextOneOfTheirKind)
{
    EXPECT_EQ(shellUnquoted("a b"), "a b");
    EXPECT_EQ(shellUnquoted(R"("it's" # comment)"), "it's");
    EXPECT_EQ(shellUnquoted(R"('say "hi"'x)"), "say \"hi\"");
    EXPECT_EQ(shellUnquoted("\"open"), "open");
    EXPECT_EQ(shellUnquoted("\""), "");
    EXPECT_EQ(shellUnquoted("a\"b\""), "a\"b\"");
    EXPECT_EQ(shellUnquoted(""), "");
}

TEST(Text, AShellsBackslashMakesTheNextCharacterLiteralExceptInSingleQuotes)
{
    EXPECT_EQ(shellUnquoted(R"("say \"hi\" \\ \$x")"), R"(say "hi" \ $x)");
    EXPECT_EQ(shellUnquoted(R"(a\ b\)"), R"(a b\)");
    EXPECT_EQ(shellUnquoted(R"('a\b')"), R"(a\b)");
}

TEST(Text, IsCutBetweenTwoCharacters)
{
    EXPECT_EQ(startOf("abc", 3), "abc");
    EXPECT_EQ(startOf("abcd", 3), "abc");
    EXPECT_EQ(startOf("a\xC3\xA9z", 2), "a");
    EXPECT_EQ(startOf("a\xC3\xA9z", 3), "a\xC3\xA9");
    EXPECT_EQ(startOf("\xF0\x9F\x98\x80", 3), "");
    EXPECT_EQ(startOf("\xA9\xA9\xA9", 1), "") << "what is no text has no characters";
}

} // namespace
} // namespace corvane
