#pragma once

#include <tuple>

#include <QColor>
#include <QHash>

#include "core/color.h"
#include "map/tile_colors.h"

namespace corvane {

using TileRole = TileColors::Role;

/// The engine's tile colours for Qt, light or dark. Remembers what it has asked for: each takes several
/// looks at the contrast. One thread.
class TileTones {
public:
    explicit TileTones(bool dark) : m_dark(dark) {}

    [[nodiscard]] bool isDark() const { return m_dark; }

    /// The ground. `rank` is a nested tile's place among its siblings, from 0 for the first to 1 for the last.
    [[nodiscard]] QColor fill(const Color &color, TileRole role, double rank = 0);

    /// Names, the hatch and the mark of a selected tile.
    [[nodiscard]] QColor ink(const Color &color);

    /// The size below a name: the ink, a little weaker.
    [[nodiscard]] QColor sizeInk(const Color &color);

    /// What stands on a disc of ink.
    [[nodiscard]] QColor onInk() const;

private:
    [[nodiscard]] TileColors colors(const Color &color, TileRole role, double rank);

    bool m_dark;
    QHash<std::tuple<QRgb, int, double>, TileColors> m_known; ///< by colour, role and rank
};

/// A colour of the engine as Qt has it, in eight bits.
[[nodiscard]] QColor toQColor(const Color &color);

} // namespace corvane
