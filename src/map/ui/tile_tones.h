#pragma once

#include <QColor>
#include <QHash>

#include "core/color.h"

namespace corvane {

/// What a tile is drawn as.
enum class TileRole {
    frame, ///< a folder whose own items are drawn inside it
    leaf,  ///< any other item of the folder shown
    nested ///< an item inside a frame
};

/// The colours that a tile's own colour becomes on the map, light or dark: its ground and the ink on it,
/// each with enough contrast for a line of text. Remembers what it has worked out; one thread.
class TileTones {
public:
    explicit TileTones(bool dark) : m_dark(dark) {}

    [[nodiscard]] bool isDark() const { return m_dark; }

    /// The ground. `rank` is a nested tile's place among its siblings, from 0 for the first to 1 for the last.
    [[nodiscard]] QColor fill(const Color &color, TileRole role, double rank = 0);

    /// Names, the hatch and the mark of a selected tile.
    [[nodiscard]] QColor ink(const Color &color) const;

    /// The size below a name: the ink, a little weaker.
    [[nodiscard]] QColor sizeInk(const Color &color) const;

    /// What stands on a disc of ink.
    [[nodiscard]] QColor onInk() const;

private:
    bool m_dark;
    QHash<quint64, QRgb> m_fills;
};

/// A colour of the engine as Qt has it, in eight bits.
[[nodiscard]] QColor toQColor(const Color &color);

} // namespace corvane
