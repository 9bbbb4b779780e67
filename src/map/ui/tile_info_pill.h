#pragma once

#include <cstdint>

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include "map/treemap_builder.h"

namespace corvane {

/// The contents of a tile's tool tip.
struct TileInfoPill {
    QString title;
    std::int64_t size = 0;
    bool opens = false; ///< whether it is a folder or a package

    explicit TileInfoPill(const TreemapTile &tile);

    /// The second line. `percent` is the tile's share of the current folder.
    [[nodiscard]] QString info(double percent) const;

    /// The position of the panel for a pointer: below and to the right, on the other side if it would leave `bounds`,
    /// and always inside them.
    [[nodiscard]] static QPointF place(QPointF pointer, QSizeF panel, const QRectF &bounds);
};

} // namespace corvane
