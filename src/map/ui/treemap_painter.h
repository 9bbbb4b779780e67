#pragma once

#include <span>

#include <QFont>
#include <QImage>
#include <QRectF>
#include <QString>

#include "core/color.h"
#include "map/ui/tile_tones.h"

class QPainter;

namespace corvane {

/// The appearance of one tile.
struct TileFace {
    QRectF rect{}; ///< points
    Color color{};
    TileRole role = TileRole::leaf;
    double rank = 0; ///< see TileTones::fill
    QString label{};
    QString sizeText{};
    bool hatched = false; ///< selected, or inside a selected folder
    bool checked = false; ///< selected itself
};

/// The fonts of the labels.
struct TileFonts {
    QFont name;       ///< items of the folder shown
    QFont nestedName; ///< items inside a frame
    QFont size;
};

/// Draws the tiles of a map, independently of the tree, the pointer and the focus. Any one thread; `tones` must outlive
/// it.
class TreemapPainter {
public:
    TreemapPainter(TileTones &tones, TileFonts fonts);

    /// Draws the tiles in this order, so parents must precede their nested tiles. Edges are aligned to the picture's
    /// pixels.
    /// @param picture premultiplied 32-bit colours, opaque
    void paint(QImage &picture, std::span<const TileFace> tiles);

    /// The corner radius of a tile, in points; 0 if the tile is too small for round corners.
    [[nodiscard]] static double cornerRadius(const QRectF &rect, TileRole role);

    /// The rectangle with its edges rounded to whole device pixels.
    [[nodiscard]] static QRectF snapped(const QRectF &rect, double devicePixelRatio);

private:
    void paintFrameLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const;
    void paintLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const;
    void paintSelection(QPainter &painter, const TileFace &tile, const QRectF &rect) const;

    TileTones &m_tones;
    TileFonts m_fonts;
};

} // namespace corvane
