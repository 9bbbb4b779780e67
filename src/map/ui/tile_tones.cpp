#include "map/ui/tile_tones.h"

#include <cmath>

namespace corvane {

TileColors TileTones::colors(const Color &color, TileRole role, double rank)
{
    const std::tuple key(toQColor(color).rgb(), static_cast<int>(role), rank);
    if (const auto known = m_known.constFind(key); known != m_known.constEnd())
        return *known;
    const auto appearance = m_dark ? TileColors::Appearance::dark : TileColors::Appearance::light;
    return *m_known.insert(key, TileColors::of(color, role, rank, appearance));
}

QColor TileTones::fill(const Color &color, TileRole role, double rank)
{
    return toQColor(colors(color, role, rank).fill);
}

QColor TileTones::ink(const Color &color)
{
    return toQColor(colors(color, TileRole::leaf, 0).ink);
}

QColor TileTones::sizeInk(const Color &color)
{
    QColor result = ink(color);
    result.setAlphaF(static_cast<float>(TileColors::sizeInkOpacity));
    return result;
}

QColor TileTones::onInk() const
{
    return m_dark ? QColor(0x11, 0x11, 0x11) : QColor(Qt::white);
}

QColor toQColor(const Color &color)
{
    const auto part = [](double value) { return static_cast<int>(std::lround(value * 255)); };
    return {part(color.red), part(color.green), part(color.blue)};
}

} // namespace corvane
