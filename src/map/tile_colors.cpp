#include "map/tile_colors.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double leastContrast = 4.55; ///< WCAG 2 requires 4.5 for small text; the rest allows for rounding
constexpr double step = 0.02;

// Channels here are 0 to 255, in screen steps: a blend of whole steps can end exactly halfway between two, and only
// this unit represents that exactly, so that it is always rounded up.
constexpr Color lightGround{0xFF, 0xFF, 0xFF};
constexpr Color darkGround{0x18, 0x19, 0x1D};
constexpr Color lightInk{0x08, 0x09, 0x12};
constexpr double lightInkShare = 0.86;
constexpr Color darkInk{0xFA, 0xFA, 0xFC};

double groundShare(TileColors::Role role, double rank, bool isDark)
{
    switch (role) {
    case TileColors::Role::frame:
        return isDark ? 0.74 : 0.70;
    case TileColors::Role::leaf:
        return isDark ? 0.34 : 0.22;
    case TileColors::Role::nested:
        break;
    }
    return isDark ? 0.36 + 0.16 * rank : 0.24 + 0.22 * rank;
}

Color inSteps(const Color &color)
{
    return {std::round(color.red * 255), std::round(color.green * 255), std::round(color.blue * 255)};
}

Color fromSteps(const Color &steps)
{
    return {steps.red / 255, steps.green / 255, steps.blue / 255};
}

Color rounded(const Color &steps)
{
    return {std::round(steps.red), std::round(steps.green), std::round(steps.blue)};
}

Color inkInSteps(const Color &own, bool isDark)
{
    return isDark ? darkInk : mixed(own, lightInk, lightInkShare);
}

bool isLegible(const Color &fill, const Color &ink)
{
    return contrast(fromSteps(fill), fromSteps(mixed(fill, ink, TileColors::sizeInkOpacity))) >= leastContrast;
}

} // namespace

Color mixed(const Color &below, const Color &above, double opacity)
{
    const auto mix = [opacity](double from, double to) { return from + (to - from) * opacity; };
    return {mix(below.red, above.red), mix(below.green, above.green), mix(below.blue, above.blue)};
}

TileColors TileColors::of(const Color &color, Role role, double rank, Appearance appearance)
{
    const bool isDark = appearance == Appearance::dark;
    const Color own = inSteps(color);
    const Color ground = isDark ? darkGround : lightGround;
    const Color ink = inkInSteps(own, isDark);

    double share = groundShare(role, rank, isDark);
    Color fill = mixed(own, ground, share);
    while (share < 1 && !isLegible(fill, ink)) {
        share = std::min(share + step, 1.0);
        fill = mixed(own, ground, share);
    }
    return {fromSteps(rounded(fill)), fromSteps(rounded(ink))};
}

Color TileColors::inkOn(const Color &color, Appearance appearance)
{
    return fromSteps(rounded(inkInSteps(inSteps(color), appearance == Appearance::dark)));
}

} // namespace corvane
