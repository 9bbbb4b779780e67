#pragma once

#include <cstdint>

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include "map/treemap_builder.h"

namespace corvane {

/// What the small panel beside the pointer says of a tile.
struct TileInfoPill {
    QString title;
    std::int64_t size = 0;
    bool opens = false; ///< a folder or a package

    explicit TileInfoPill(const TreemapTile &tile);

    /// The second line. `percent` is the tile's share of the folder shown.
    [[nodiscard]] QString info(double percent) const;

    /// Where the panel stands for a pointer: below and to the right of it, on the other side where it would
    /// leave `bounds`, and never outside them.
    [[nodiscard]] static QPointF place(QPointF pointer, QSizeF panel, const QRectF &bounds);
};

} // namespace corvane
