#include "core/store/path_text.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::string_literals;

TEST(DisplayText, KeepsWhatIsValidText)
{
    EXPECT_EQ(displayText("Grüße 🎬.mov"), QStringLiteral("Grüße 🎬.mov"));
}

TEST(DisplayText, BytesThatAreNotUtf8BecomeReplacementCharacters)
{
    EXPECT_EQ(displayText("a\xff"
                          "b"),
              QStringLiteral("a\uFFFDb"));
}

TEST(DisplayText, ControlCharactersBecomeTheirPicturesSoThatANameStaysOnOneLine)
{
    EXPECT_EQ(displayText("a\nb\tc\x1b\x7f"), QStringLiteral("a\u240Ab\u2409c\u241B\u2421"));
    EXPECT_EQ(displayText("a\u2028b\u0085c"), QStringLiteral("a\uFFFDb\uFFFDc"));
}

TEST(DisplayText, CharactersThatTurnTheDirectionOfWritingCannotDisguiseAName)
{
    EXPECT_EQ(displayText("photo\u202Egpj.app"), QStringLiteral("photo\uFFFDgpj.app"));
    EXPECT_EQ(displayText("a\u2066b\u061Cc\u200Fd"), QStringLiteral("a\uFFFDb\uFFFDc\uFFFDd"));
}

} // namespace
} // namespace corvane
