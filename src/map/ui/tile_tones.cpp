#include "map/ui/tile_tones.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double sizeInkStrength = 0.86;
constexpr double sizeInkContrast = 4.55; // WCAG asks for 4.5; the rest is for rounding
constexpr double step = 0.02;

/// sRGB, each part from 0 to 255.
struct Rgb {
    double red;
    double green;
    double blue;
};

constexpr Rgb white{255, 255, 255};
constexpr Rgb darkBase{0x18, 0x19, 0x1d};
constexpr Rgb lightInkBase{0x08, 0x09, 0x12};
constexpr Rgb darkInk{0xfa, 0xfa, 0xfc};
constexpr double lightInkShare = 0.86;

Rgb toRgb(const Color &color)
{
    return {std::round(color.red * 255), std::round(color.green * 255), std::round(color.blue * 255)};
}

QColor toQColor(const Rgb &rgb)
{
    return {static_cast<int>(std::lround(rgb.red)), static_cast<int>(std::lround(rgb.green)),
            static_cast<int>(std::lround(rgb.blue))};
}

Rgb mix(const Rgb &from, const Rgb &to, double share)
{
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

double linear(double part)
{
    const double value = part / 255;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const Rgb &rgb)
{
    return 0.2126 * linear(rgb.red) + 0.7152 * linear(rgb.green) + 0.0722 * linear(rgb.blue);
}

/// The contrast ratio of WCAG 2, from 1 to 21.
double contrast(const Rgb &a, const Rgb &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Rgb inkOf(const Rgb &color, bool dark)
{
    return dark ? darkInk : mix(color, lightInkBase, lightInkShare);
}

/// How much of the base a tile's ground holds, before contrast is looked at.
double baseShare(TileRole role, double rank, bool dark)
{
    switch (role) {
    case TileRole::frame:
        return dark ? 0.74 : 0.70;
    case TileRole::leaf:
        return dark ? 0.34 : 0.22;
    case TileRole::nested:
        break;
    }
    return dark ? 0.36 + 0.16 * rank : 0.24 + 0.22 * rank;
}

} // namespace

QColor TileTones::fill(const Color &color, TileRole role, double rank)
{
    const Rgb own = toRgb(color);
    const double share = baseShare(role, rank, m_dark);
    // The share stands for role and rank.
    const quint64 key = quint64(toQColor(own).rgb()) << 32 | static_cast<quint64>(std::lround(share * 1e6));
    if (const auto known = m_fills.constFind(key); known != m_fills.constEnd())
        return QColor(*known);

    const Rgb base = m_dark ? darkBase : white;
    const Rgb ink = inkOf(own, m_dark);
    const auto legible = [&](const Rgb &ground) {
        return contrast(ground, mix(ground, ink, sizeInkStrength)) >= sizeInkContrast;
    };
    Rgb ground = mix(own, base, share);
    for (double more = share + step; !legible(ground) && more <= 1; more += step)
        ground = mix(own, base, more);

    const QColor result = toQColor(ground);
    m_fills.insert(key, result.rgb());
    return result;
}

QColor TileTones::ink(const Color &color) const
{
    return toQColor(inkOf(toRgb(color), m_dark));
}

QColor TileTones::sizeInk(const Color &color) const
{
    QColor result = ink(color);
    result.setAlphaF(static_cast<float>(sizeInkStrength));
    return result;
}

QColor TileTones::onInk() const
{
    return m_dark ? QColor(0x11, 0x11, 0x11) : QColor(Qt::white);
}

QColor toQColor(const Color &color)
{
    return toQColor(toRgb(color));
}

} // namespace corvane
