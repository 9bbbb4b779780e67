#include "map/ui/tile_tones.h"

#include <cmath>

#include "shell/ui/qt_color.h"
#include "shell/ui/theme.h"

namespace corvane {

QColor TileTones::fill(const Color &color, TileRole role, double rank)
{
    const auto place = static_cast<quint64>(std::lround(rank * 1e6));
    const quint64 key = quint64(toQColor(color).rgb() & RGB_MASK) << 32 | static_cast<quint64>(role) << 24 | place;
    const auto known = m_fills.constFind(key);
    if (known != m_fills.constEnd())
        return QColor(*known);
    const QColor result = toQColor(TileColors::of(color, role, rank, m_appearance).fill);
    m_fills.insert(key, result.rgb());
    return result;
}

QColor TileTones::ink(const Color &color) const
{
    return toQColor(TileColors::inkOn(color, m_appearance));
}

QColor TileTones::sizeInk(const Color &color) const
{
    QColor result = ink(color);
    result.setAlphaF(static_cast<float>(TileColors::sizeInkOpacity));
    return result;
}

QColor TileTones::onInk() const
{
    return Theme::tileCheck(isDark() ? Theme::Scheme::dark : Theme::Scheme::light);
}

} // namespace corvane
