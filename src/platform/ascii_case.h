#pragma once

#include <algorithm>
#include <string>

namespace corvane {

/// Lower-cases ASCII letters and leaves other bytes alone. For comparison with tables that are pure ASCII.
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
