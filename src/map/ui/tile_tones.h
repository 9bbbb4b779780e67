#pragma once

#include <QColor>
#include <QHash>

#include "core/color.h"
#include "map/tile_colors.h"

namespace corvane {

using TileRole = TileColors::Role;

/// The tile colours as QColor, light or dark. Caches computed colours; not thread-safe.
class TileTones {
public:
    explicit TileTones(bool dark) : m_appearance(dark ? TileColors::Appearance::dark : TileColors::Appearance::light) {}

    [[nodiscard]] bool isDark() const { return m_appearance == TileColors::Appearance::dark; }

    /// The fill; see TileColors::of.
    [[nodiscard]] QColor fill(const Color &color, TileRole role, double rank = 0);

    /// For names, the hatching and the mark of a selected tile.
    [[nodiscard]] QColor ink(const Color &color) const;

    /// For the size below a name: slightly weaker than the ink.
    [[nodiscard]] QColor sizeInk(const Color &color) const;

    /// For glyphs on a disc of ink.
    [[nodiscard]] QColor onInk() const;

private:
    TileColors::Appearance m_appearance;
    QHash<quint64, QRgb> m_fills;
};

} // namespace corvane
