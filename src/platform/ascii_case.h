#pragma once

#include <algorithm>
#include <string>

namespace corvane {

/// The byte in lower case where it is one of ASCII's letters; no other is touched. For comparing with tables that
/// hold nothing but ASCII.
[[nodiscard]] constexpr char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] inline std::string lowerAscii(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) { return lowerAscii(c); });
    return text;
}

} // namespace corvane
