#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace corvane {

/// The text without the blanks around it: spaces, tabs and the ends of lines.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Takes the part before the first mark off the text, and the mark with it; all of the text where it has none.
constexpr std::string_view takePart(std::string_view &text, char mark)
{
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

/// Takes the first line off the text.
constexpr std::string_view takeLine(std::string_view &text)
{
    return takePart(text, '\n');
}

/// The start of a text, at most that many bytes of it. No character of UTF-8 is cut in two: some systems take no name
/// that is not text.
[[nodiscard]] constexpr std::string_view startOf(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return text;
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80)
        --most;
    return text.substr(0, most);
}

} // namespace corvane
