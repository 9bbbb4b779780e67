#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace corvane {

/// The text without leading and trailing spaces, tabs and line breaks.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Consumes and returns the part before the first `mark`, together with the mark; the whole text if there is none.
constexpr std::string_view takePart(std::string_view &text, char mark)
{
    const std::string_view part = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

/// Consumes and returns the first line.
constexpr std::string_view takeLine(std::string_view &text)
{
    return takePart(text, '\n');
}

/// At most the first `most` bytes of a text, without splitting a UTF-8 character: some systems reject names that are
/// not valid UTF-8.
[[nodiscard]] constexpr std::string_view startOf(std::string_view text, std::size_t most)
{
    if (text.size() <= most)
        return text;
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80)
        --most;
    return text.substr(0, most);
}

} // namespace corvane
