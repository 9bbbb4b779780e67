#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
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

/// The value of a shell assignment without its quotes. A value that starts with a single or double quote ends at the
/// next one, and what follows is ignored; any other value is the whole text. Except in single quotes, a backslash makes
/// the next character literal, whichever it is. Nothing is expanded.
[[nodiscard]] inline std::string shellUnquoted(std::string_view value)
{
    const char first = value.empty() ? '\0' : value.front();
    const char quote = first == '"' || first == '\'' ? first : '\0';
    if (quote != '\0')
        value.remove_prefix(1);
    std::string text;
    for (std::size_t at = 0; at < value.size() && (quote == '\0' || value[at] != quote); ++at) {
        if (value[at] == '\\' && quote != '\'' && at + 1 < value.size())
            ++at;
        text += value[at];
    }
    return text;
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
