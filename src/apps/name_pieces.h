#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace corvane {

/// The first pieces of a name between its dots, at most `count` of them, joined with dots again. Empty pieces, as in a
/// name with "..", are dropped.
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

/// Whether a name is made of nothing but letters, digits and the signs that names of packages have, so that a terminal
/// takes it for a name. At most as long as a file's.
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

/// Whether a plain name has three pieces or more between its dots, none of them empty, as an application's identifier
/// has.
[[nodiscard]] inline bool isReverseDomainName(std::string_view name)
{
    return isPlainName(name) && std::ranges::count(name, '.') >= 2 && !name.ends_with('.') &&
           name.find("..") == std::string_view::npos;
}

} // namespace corvane
