#pragma once

#include <QColor>
#include <QHash>

#include "core/color.h"
#include "map/tile_colors.h"

namespace corvane {

using TileRole = TileColors::Role;

/// The colours of the tiles, as Qt has them, light or dark. Remembers what it has worked out; one thread.
class TileTones {
public:
    explicit TileTones(bool dark) : m_appearance(dark ? TileColors::Appearance::dark : TileColors::Appearance::light) {}

    [[nodiscard]] bool isDark() const { return m_appearance == TileColors::Appearance::dark; }

    /// The ground; see TileColors::of.
    [[nodiscard]] QColor fill(const Color &color, TileRole role, double rank = 0);

    /// Names, the hatch and the mark of a selected tile.
    [[nodiscard]] QColor ink(const Color &color) const;

    /// The size below a name: the ink, a little weaker.
    [[nodiscard]] QColor sizeInk(const Color &color) const;

    /// What stands on a disc of ink.
    [[nodiscard]] QColor onInk() const;

private:
    TileColors::Appearance m_appearance;
    QHash<quint64, QRgb> m_fills;
};

} // namespace corvane
