#pragma once

#include <string>
#include <string_view>

#include "map/rect.h"
#include "map/tile_colors.h"

namespace corvane {

/// The texts that one tile of a picture has room for, and where. A tile too small for its whole name or eight
/// characters of it stays without one.
struct TileLabel {
    std::string name;        ///< shown text; empty: the tile has no label
    std::string size;        ///< empty where there is no room for it
    double nameX = 0;        ///< points, from the tile's left edge
    double nameBaseline = 0; ///< points, from the tile's top edge
    double sizeX = 0;
    double sizeBaseline = 0;
    bool sizeEndsAtX = false; ///< the size stands to the left of `sizeX`, not to its right
    double nameHeight = 0;    ///< of the font, points
    int nameWeight = 0;

    static constexpr double sizeHeight = 11; ///< of the font, points

    [[nodiscard]] static TileLabel of(std::string_view name, std::string_view size, const Rect &tile,
                                      TileColors::Role role);
};

/// About how many points wide a text is in a common sans-serif face.
[[nodiscard]] double textWidth(std::string_view text, double height, int weight);

} // namespace corvane
