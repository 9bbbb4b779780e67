#pragma once

#include <string>
#include <string_view>

#include "map/rect.h"
#include "map/tile_colors.h"

namespace corvane {

/// The texts that fit into one tile of a picture, and their positions. No name is shown if neither the whole name nor
/// eight characters of it fit.
struct TileLabel {
    std::string name;        ///< display text; empty: no label
    std::string size;        ///< empty if it does not fit
    double nameX = 0;        ///< points, from the tile's left edge
    double nameBaseline = 0; ///< points, from the tile's top edge
    double sizeX = 0;
    double sizeBaseline = 0;
    bool sizeEndsAtX = false; ///< the size is right-aligned at `sizeX`
    double nameHeight = 0;    ///< font height, points
    int nameWeight = 0;

    static constexpr double sizeHeight = 11; ///< font height, points

    [[nodiscard]] static TileLabel of(std::string_view name, std::string_view size, const Rect &tile,
                                      TileColors::Role role);
};

/// The estimated width of a text, in points, in a common sans-serif face.
[[nodiscard]] double textWidth(std::string_view text, double height, int weight);

} // namespace corvane
