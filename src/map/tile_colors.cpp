#include "map/tile_colors.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double leastContrast = 4.55; ///< WCAG 2 asks for 4.5 of small text; the rest is for rounding
constexpr double step = 0.02;

constexpr Color rgb(int red, int green, int blue)
{
    return {red / 255.0, green / 255.0, blue / 255.0};
}

constexpr Color lightGround = rgb(0xFF, 0xFF, 0xFF);
constexpr Color darkGround = rgb(0x18, 0x19, 0x1D);
constexpr Color lightInk = rgb(0x08, 0x09, 0x12);
constexpr double lightInkShare = 0.86;
constexpr Color darkInk = rgb(0xFA, 0xFA, 0xFC);

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

/// The colour as a screen has it, in eight bits for each part.
Color onScreen(const Color &color)
{
    const auto part = [](double value) { return std::round(value * 255) / 255; };
    return {part(color.red), part(color.green), part(color.blue)};
}

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const Color &color)
{
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

} // namespace

Color mixed(const Color &below, const Color &above, double opacity)
{
    const auto mix = [opacity](double from, double to) { return from + (to - from) * opacity; };
    return {mix(below.red, above.red), mix(below.green, above.green), mix(below.blue, above.blue)};
}

double contrast(const Color &a, const Color &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

TileColors TileColors::of(const Color &color, Role role, double rank, Appearance appearance)
{
    const bool isDark = appearance == Appearance::dark;
    const Color own = onScreen(color);
    const Color ground = isDark ? darkGround : lightGround;
    const Color ink = isDark ? darkInk : mixed(own, lightInk, lightInkShare);

    double share = groundShare(role, rank, isDark);
    Color fill = mixed(own, ground, share);
    while (share < 1 && contrast(fill, mixed(fill, ink, sizeInkOpacity)) < leastContrast) {
        share = std::min(share + step, 1.0);
        fill = mixed(own, ground, share);
    }
    return {onScreen(fill), onScreen(ink)};
}

} // namespace corvane
