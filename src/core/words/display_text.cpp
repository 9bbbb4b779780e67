#include "core/words/display_text.h"

#include "core/words/utf8.h"
#include "platform/path.h"

namespace corvane {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t controlPictures = 0x2400; // in the order of ASCII's first 32
constexpr char32_t deletePicture = 0x2421;

bool turnsDirection(char32_t codePoint)
{
    return codePoint == 0x061C || codePoint == 0x200E || codePoint == 0x200F ||
           (codePoint >= 0x202A && codePoint <= 0x202E) || (codePoint >= 0x2066 && codePoint <= 0x2069);
}

char32_t shown(const DecodedCharacter &character)
{
    const char32_t codePoint = character.codePoint;
    if (!character.isValid)
        return replacement;
    if (codePoint < 0x20)
        return controlPictures + codePoint;
    if (codePoint == 0x7F)
        return deletePicture;
    const bool isUpperControl = codePoint >= 0x80 && codePoint < 0xA0;
    const bool breaksLine = codePoint == 0x2028 || codePoint == 0x2029;
    const bool isNoCharacter = (codePoint & 0xFFFEU) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
    if (isUpperControl || breaksLine || isNoCharacter || turnsDirection(codePoint))
        return replacement;
    return codePoint;
}

/// The number of leading bytes that need no change.
std::size_t plainBytes(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        if (bytes[i] >= 0x20 && bytes[i] < 0x7F) { // the common case
            ++i;
            continue;
        }
        const DecodedCharacter character = decodeUtf8(bytes, i);
        if (!character.isValid || shown(character) != character.codePoint)
            return i;
        i += character.length;
    }
    return bytes.size();
}

} // namespace

std::string displayUtf8(std::string_view bytes)
{
    const std::size_t plain = plainBytes(bytes);
    std::string text(bytes.substr(0, plain));
    for (std::size_t i = plain; i < bytes.size();) {
        const DecodedCharacter character = decodeUtf8(bytes, i);
        appendUtf8(text, shown(character));
        i += character.length;
    }
    return text;
}

bool isDisplayText(std::string_view bytes)
{
    return plainBytes(bytes) == bytes.size();
}

std::string withHomeShortened(std::string_view path, std::string_view home)
{
    if (home.size() > 1 && isOrLiesBeneath(path, home))
        return "~" + std::string(path.substr(home.size()));
    return std::string(path);
}

std::string formatPath(std::string_view path, std::string_view home)
{
    return displayUtf8(withHomeShortened(path, home));
}

} // namespace corvane
