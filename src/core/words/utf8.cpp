#include "core/words/utf8.h"

#include <array>

#include <utf8proc.h>

namespace corvane {

namespace {

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

} // namespace

DecodedCharacter decodeUtf8(std::string_view bytes, std::size_t position)
{
    const std::string_view rest = bytes.substr(position);
    if (isAscii(rest.front())) // the common case
        return {static_cast<char32_t>(rest.front()), 1, true};
    utf8proc_int32_t codePoint = 0;
    const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(rest.data()),
                                                     static_cast<utf8proc_ssize_t>(rest.size()), &codePoint);
    if (length <= 0)
        return {};
    return {static_cast<char32_t>(codePoint), static_cast<std::size_t>(length), true};
}

void appendUtf8(std::string &text, char32_t codePoint)
{
    std::array<utf8proc_uint8_t, 4> bytes{};
    const utf8proc_ssize_t length = utf8proc_encode_char(static_cast<utf8proc_int32_t>(codePoint), bytes.data());
    text.append(bytes.begin(), bytes.begin() + length);
}

bool isValidUtf8(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        const DecodedCharacter character = decodeUtf8(bytes, i);
        if (!character.isValid)
            return false;
        i += character.length;
    }
    return true;
}

} // namespace corvane
