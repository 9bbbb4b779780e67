#pragma once

#include "core/color.h"

namespace corvane {

/// The colours of one tile. The fill is the tile's own colour mixed with the map's background colour. The larger an
/// item, the stronger its colour, and siblings differ without outlines. Share of the background:
///
///   frame (contains the tiles of its folder)      70 % in light, 74 % in dark
///   leaf (any other item of the current folder)   22 % in light, 34 % in dark
///   nested (an item inside a frame)               24 % for the largest to 46 % for the smallest in light,
///                                                 36 % to 52 % in dark
///
/// The share is increased until small text has enough contrast. The ink, for the text, is in light the own colour mixed
/// with much near-black, in dark near-white. Pure; any thread.
struct TileColors {
    enum class Role { frame, leaf, nested };
    enum class Appearance { light, dark };

    Color fill;
    Color ink;

    /// `rank` is a nested tile's rank among its siblings, from 0 for the largest to 1; other roles ignore it.
    [[nodiscard]] static TileColors of(const Color &color, Role role, double rank, Appearance appearance);

    /// The ink on tiles of this colour; the same for every role.
    [[nodiscard]] static Color inkOn(const Color &color, Appearance appearance);

    /// The opacity of the ink that sizes are written in.
    static constexpr double sizeInkOpacity = 0.86;

    friend constexpr bool operator==(const TileColors &, const TileColors &) = default;
};

/// `above` blended over `below` with this opacity, in the unit of the inputs.
[[nodiscard]] Color mixed(const Color &below, const Color &above, double opacity);

} // namespace corvane
