#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

/// The first pieces of a name between its dots, at most `count` of them, joined with dots again. Empty pieces, as in a
/// name with "..", are dropped.
[[nodiscard]] inline std::string leadingPieces(std::string_view name, std::size_t count)
{
    std::string joined;
    for (std::size_t start = 0; start < name.size() && count > 0;) {
        const std::string_view piece = name.substr(start, name.find('.', start) - start);
        start += piece.size() + 1;
        if (piece.empty())
            continue;
        if (!joined.empty())
            joined += '.';
        joined += piece;
        --count;
    }
    return joined;
}

} // namespace corvane
