#pragma once

namespace corvane {

/// A rectangle in points: origin at the top left, y downwards.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    /// Smaller by `distance` on every side.
    [[nodiscard]] constexpr Rect inset(double distance) const
    {
        return {x + distance, y + distance, width - 2 * distance, height - 2 * distance};
    }
    [[nodiscard]] constexpr bool contains(double px, double py) const
    {
        return px >= x && py >= y && px < x + width && py < y + height;
    }

    friend constexpr bool operator==(const Rect &, const Rect &) = default;
};

} // namespace corvane
