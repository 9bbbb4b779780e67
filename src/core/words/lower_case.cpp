#include "core/words/lower_case.h"

#include "core/words/utf8.h"
#include "platform/ascii_case.h"

namespace corvane {

namespace {

/// A run of capitals: each has its small letter so much further on.
struct Run {
    char32_t first;
    char32_t last;
    char32_t distance;
};

constexpr Run runs[] = {
    {0x00C0, 0x00D6, 0x20}, {0x00D8, 0x00DE, 0x20},                         // Latin
    {0x0386, 0x0386, 38},   {0x0388, 0x038A, 37},   {0x038C, 0x038C, 64},   // Greek, with accents
    {0x038E, 0x038F, 63},   {0x0391, 0x03A1, 0x20}, {0x03A3, 0x03AB, 0x20}, // Greek
    {0x0400, 0x040F, 0x50}, {0x0410, 0x042F, 0x20},                         // Cyrillic
};

/// A block in which capitals and small letters take turns.
struct Pairs {
    char32_t first; ///< the first capital
    char32_t last;  ///< the last small letter
};

constexpr Pairs blocks[] = {
    {0x0100, 0x012F}, {0x0132, 0x0137}, {0x0139, 0x0148}, {0x014A, 0x0177}, {0x0179, 0x017E}, {0x0218, 0x021B},
    {0x0460, 0x0481}, {0x048A, 0x04BF}, {0x04C1, 0x04CE}, {0x04D0, 0x052F}, {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF},
};

char32_t lowered(char32_t character)
{
    for (const Run &run : runs) {
        if (character >= run.first && character <= run.last)
            return character + run.distance;
    }
    for (const Pairs &block : blocks) {
        if (character >= block.first && character <= block.last)
            return character + ((character - block.first) % 2 == 0 ? 1 : 0);
    }
    return character == 0x0178 ? 0x00FF : character;
}

} // namespace

std::string lowerCase(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (static_cast<unsigned char>(text[i]) < 0x80) { // most names hold nothing else
            result += lowerAscii(text[i++]);
            continue;
        }
        const DecodedCharacter character = decodeUtf8(text, i);
        if (const char32_t small = lowered(character.codePoint); small != character.codePoint)
            appendUtf8(result, small);
        else
            result += text.substr(i, character.length);
        i += character.length;
    }
    return result;
}

} // namespace corvane
