#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace corvane {

/// The first components of a dotted name, at most `count` of them, joined by dots. Empty components, as in a name with
/// "..", are dropped.
[[nodiscard]] inline std::string leadingPieces(std::string_view name, std::size_t count)
{
    std::string joined;
    while (!name.empty() && count > 0) {
        const std::string_view piece = takePart(name, '.');
        if (piece.empty())
            continue;
        if (!joined.empty())
            joined += '.';
        joined += piece;
        --count;
    }
    return joined;
}

/// Whether a name consists only of letters, digits and the punctuation of package names, so that it is safe in a shell
/// command. At most the length of a file name.
[[nodiscard]] inline bool isPlainName(std::string_view name)
{
    const auto isLetterOrDigit = [](char each) {
        return (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z') || (each >= '0' && each <= '9');
    };
    return !name.empty() && name.size() <= 255 && isLetterOrDigit(name.front()) &&
           std::ranges::all_of(name, [&](char each) {
               return isLetterOrDigit(each) || std::string_view("+-._@").find(each) != std::string_view::npos;
           });
}

/// Whether a text of a file or of a name is short and plain enough to be shown as a version.
[[nodiscard]] inline bool isVersion(std::string_view text)
{
    constexpr std::size_t longest = 64;
    return text.size() <= longest && isPlainName(text);
}

/// The text with each ASCII control character replaced by a space.
[[nodiscard]] inline std::string withoutControls(std::string text)
{
    std::ranges::replace_if(
        text, [](char each) { return static_cast<unsigned char>(each) < 0x20 || each == 0x7F; }, ' ');
    return text;
}

/// Whether a plain name has at least three non-empty components separated by dots, like an application's identifier.
[[nodiscard]] inline bool isReverseDomainName(std::string_view name)
{
    return isPlainName(name) && std::ranges::count(name, '.') >= 2 && !name.ends_with('.') &&
           name.find("..") == std::string_view::npos;
}

} // namespace corvane
