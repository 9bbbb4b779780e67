#pragma once

#include "core/color.h"

namespace corvane {

/// How one tile of a map is drawn. The fill is the tile's own colour mixed with the ground of the map, so that
/// the eye finds the largest item first and siblings differ without outlines:
///
///   frame (holds the tiles of its folder)     70 % ground in light, 74 % in dark
///   leaf (any other item of the folder shown) 22 %, 34 %
///   nested (an item inside a frame)           24 % for the largest to 46 % for the smallest, 36 % to 52 %
///
/// and with as much more of the ground as a line of small text needs to be legible on it. The ink is the own
/// colour nearly blackened in light, nearly white in dark. Pure.
struct TileColors {
    enum class Role { frame, leaf, nested };
    enum class Appearance { light, dark };

    Color fill;
    Color ink;

    /// `rank` is a nested tile's rank among its siblings, from 0 for the largest to 1; other roles ignore it.
    [[nodiscard]] static TileColors of(const Color &color, Role role, double rank, Appearance appearance);

    /// The ink on tiles of that colour, for every role.
    [[nodiscard]] static Color inkOn(const Color &color, Appearance appearance);

    /// The opacity of the ink that sizes are written in.
    static constexpr double sizeInkOpacity = 0.86;

    friend constexpr bool operator==(const TileColors &, const TileColors &) = default;
};

/// `above` blended over `below` with this opacity, in the unit of the inputs.
[[nodiscard]] Color mixed(const Color &below, const Color &above, double opacity);

} // namespace corvane
