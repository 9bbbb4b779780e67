#pragma once

#include <cstddef>
#include <string_view>

namespace corvane {

/// One thing that a terminal draws as a whole: a character with its accents, or a joined emoji.
struct Cluster {
    std::size_t length = 0; ///< bytes
    std::size_t width = 0;  ///< columns: 0, 1 or 2
};

/// The cluster that starts at `position`, which lies inside `text`. `text` is valid UTF-8. Clusters are those of
/// Unicode (UAX #29); East Asian wide characters and emoji take two columns, marks that combine take none, and emoji
/// that are joined, coloured or paired to a flag count once, as terminals that know of clusters draw them.
[[nodiscard]] Cluster nextCluster(std::string_view text, std::size_t position);

} // namespace corvane
