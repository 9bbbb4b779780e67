#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

/// One step of reading UTF-8.
struct DecodedCharacter {
    char32_t codePoint = 0xFFFD; ///< U+FFFD where the bytes are no character
    std::size_t length = 1;      ///< bytes taken; a bad byte is taken alone
    bool isValid = false;
};

/// Reads the character at `position`, which lies inside `bytes`. Overlong forms, surrogates and what lies
/// beyond U+10FFFF are bad.
[[nodiscard]] DecodedCharacter decodeUtf8(std::string_view bytes, std::size_t position);

/// Writes a character behind `text`.
void appendUtf8(std::string &text, char32_t codePoint);

[[nodiscard]] bool isValidUtf8(std::string_view bytes);

} // namespace corvane
