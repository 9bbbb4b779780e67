#pragma once

#include <unordered_map>
#include <vector>

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "map/treemap_builder.h"
#include "map/ui/tile_tones.h"

namespace corvane {

/// The tiles of one folder at one size. Finds the tile at a point, its neighbours, and its row in the folder's list.
/// Tiles are identified by index; -1 stands for no tile. Main thread only.
class TreemapLayout {
public:
    enum class Direction { left, right, up, down };

    TreemapLayout() = default;
    TreemapLayout(const FileNode &folder, QSizeF size);

    [[nodiscard]] const std::vector<TreemapTile> &tiles() const { return m_tiles; }
    [[nodiscard]] int count() const { return static_cast<int>(m_tiles.size()); }
    [[nodiscard]] const TreemapTile &tile(int index) const { return m_tiles[static_cast<std::size_t>(index)]; }
    [[nodiscard]] QRectF rect(int index) const;
    [[nodiscard]] TileRole role(int index) const;
    /// A nested tile's place among its siblings, from 0 for the first to 1 for the last.
    [[nodiscard]] double rank(int index) const { return m_ranks[static_cast<std::size_t>(index)]; }

    /// The deepest tile at the point. In the thin gaps between tiles, the tile beside the gap.
    [[nodiscard]] int at(QPointF point) const;
    /// The outermost tile that contains this one, or this one itself.
    [[nodiscard]] int top(int index) const;
    /// The tile of a node.
    [[nodiscard]] int indexOf(const FileNode *node) const;
    /// The nearest outermost tile in a direction; -1 at the edge of the map.
    [[nodiscard]] int neighbour(int index, Direction direction) const;
    /// The largest tile.
    [[nodiscard]] int first() const { return m_tiles.empty() ? -1 : 0; }

    /// The row in the folder's list of the item that contains the tile. The folder's small files have the row after the
    /// last item. -1 for a tile that stands for several items.
    [[nodiscard]] int row(int index) const;
    /// The outermost tile of a row; -1 if it has none of its own.
    [[nodiscard]] int tileOfRow(int wanted) const;

private:
    std::vector<TreemapTile> m_tiles;
    std::vector<int> m_tops;                          // by tile
    std::vector<double> m_ranks;                      // by tile
    std::unordered_map<const FileNode *, int> m_rows; // of the folder's own items
    int m_smallFilesRow = -1;
};

/// Converts a rectangle of the engine.
[[nodiscard]] QRectF toQRectF(const Rect &rect);

} // namespace corvane
