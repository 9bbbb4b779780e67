#include "cli/tile_colors.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr Color white{1, 1, 1};
constexpr Color nearlyBlack{0x08 / 255.0, 0x09 / 255.0, 0x12 / 255.0};
constexpr double inkDarkness = 0.86;
constexpr double leastContrast = 4.55; ///< a little above what WCAG 2 asks of small text
constexpr double step = 0.02;

double whiteShare(TileColors::Role role, double rank)
{
    switch (role) {
    case TileColors::Role::frame:
        return 0.70;
    case TileColors::Role::leaf:
        return 0.22;
    case TileColors::Role::nested:
        break;
    }
    return 0.24 + 0.22 * rank;
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

Color mixed(const Color &ground, const Color &ink, double opacity)
{
    const auto mix = [opacity](double below, double above) { return below + (above - below) * opacity; };
    return {mix(ground.red, ink.red), mix(ground.green, ink.green), mix(ground.blue, ink.blue)};
}

double contrast(const Color &a, const Color &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

TileColors TileColors::of(const Color &color, Role role, double rank)
{
    const Color ink = mixed(color, nearlyBlack, inkDarkness);
    double share = whiteShare(role, rank);
    Color fill = mixed(color, white, share);
    while (share < 1 && contrast(fill, mixed(fill, ink, sizeInkOpacity)) < leastContrast) {
        share = std::min(share + step, 1.0);
        fill = mixed(color, white, share);
    }
    return {fill, ink};
}

} // namespace corvane
