#pragma once

#include "core/color.h"

namespace corvane {

/// How one tile of a map is drawn on a light ground.
struct TileColors {
    /// A frame holds the tiles of its folder, nested tiles lie inside one, everything else is a leaf.
    enum class Role { frame, leaf, nested };

    Color fill;
    Color ink;

    /// `rank` is a nested tile's place among its siblings from 0, the largest, to 1, and 0 for the others.
    [[nodiscard]] static TileColors of(const Color &color, Role role, double rank);
};

/// Where ink of this opacity lies over a ground.
[[nodiscard]] Color mixed(const Color &ground, const Color &ink, double opacity);

/// The contrast of two colours as WCAG 2 defines it, from 1 to 21.
[[nodiscard]] double contrast(const Color &a, const Color &b);

/// The opacity of the ink that sizes are written in.
inline constexpr double sizeInkOpacity = 0.86;

} // namespace corvane
