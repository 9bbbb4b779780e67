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

/// What is drawn of one tile.
struct TileFace {
    QRectF rect{}; ///< points
    Color color{};
    TileRole role = TileRole::leaf;
    double rank = 0; ///< see TileTones::fill
    QString label{};
    QString sizeText{};
    bool hatched = false; ///< goes with the selection
    bool checked = false; ///< is itself selected
};

/// The fonts of the labels.
struct TileFonts {
    QFont name;       ///< items of the folder shown
    QFont nestedName; ///< items inside a frame
    QFont size;
};

/// Draws the tiles of a map; knows nothing of the tree, of hovering or of focus.
class TreemapPainter {
public:
    TreemapPainter(TileTones &tones, TileFonts fonts);

    /// Parents come before their nested tiles. Edges fall on the picture's pixels.
    /// @param picture premultiplied 32-bit colours, opaque
    void paint(QImage &picture, std::span<const TileFace> tiles);

    /// The corner radius of a tile, in points; 0 for one too small for round corners.
    [[nodiscard]] static double cornerRadius(const QRectF &rect, TileRole role);

    /// The rectangle with its edges on whole device pixels.
    [[nodiscard]] static QRectF snapped(const QRectF &rect, double devicePixelRatio);

private:
    void paintFrameLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const;
    void paintLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const;
    void paintSelection(QPainter &painter, const TileFace &tile, const QRectF &rect) const;

    TileTones &m_tones;
    TileFonts m_fonts;
};

} // namespace corvane
