#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

/// One decoded code point.
struct DecodedCharacter {
    char32_t codePoint = 0xFFFD; ///< U+FFFD if the bytes are invalid
    std::size_t length = 1;      ///< bytes consumed; 1 for an invalid byte
    bool isValid = false;
};

/// Decodes the character at `position`, which must be inside `bytes`. Overlong forms, surrogates and values above
/// U+10FFFF are invalid.
[[nodiscard]] DecodedCharacter decodeUtf8(std::string_view bytes, std::size_t position);

/// Appends a character to `text`.
void appendUtf8(std::string &text, char32_t codePoint);

[[nodiscard]] bool isValidUtf8(std::string_view bytes);

} // namespace corvane
