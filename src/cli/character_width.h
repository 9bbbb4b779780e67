#pragma once

#include <cstddef>
#include <string_view>

namespace corvane {

/// A grapheme cluster, which a terminal draws as a unit: a character with its accents, or a joined emoji.
struct Cluster {
    std::size_t length = 0; ///< bytes
    std::size_t width = 0;  ///< columns: 0, 1 or 2
};

/// The cluster that starts at `position`, which must be inside `text`. `text` is valid UTF-8. Clusters follow Unicode
/// (UAX #29); East Asian wide characters and emoji take two columns, combining marks none, and emoji sequences (joined,
/// with skin tone, or flags) count once, as in terminals that support clusters.
[[nodiscard]] Cluster nextCluster(std::string_view text, std::size_t position);

} // namespace corvane
