#pragma once

#include <unordered_map>
#include <vector>

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include "map/treemap_builder.h"
#include "map/ui/tile_tones.h"

namespace corvane {

/// The tiles of one folder at one size, and what can be asked about them: which one lies under the pointer,
/// which comes next in a direction, which row of the folder's list it belongs to. Tiles are named by their
/// index; -1 is none. Main thread only.
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

    /// The deepest tile at the point. The thin lines between the tiles belong to the tile beside them.
    [[nodiscard]] int at(QPointF point) const;
    /// The tile of the folder's own item that the tile is, or lies in.
    [[nodiscard]] int top(int index) const;
    /// The tile of a node.
    [[nodiscard]] int indexOf(const FileNode *node) const;
    /// The nearest tile in a direction, among those of the folder's own items; -1 at the edge.
    [[nodiscard]] int neighbour(int index, Direction direction) const;
    /// The largest tile.
    [[nodiscard]] int first() const { return m_tiles.empty() ? -1 : 0; }

    /// The row of the folder's list that the tile belongs to: its item's, or, for the folder's small files,
    /// the one after the last item. -1 where several items share the tile.
    [[nodiscard]] int row(int index) const;
    [[nodiscard]] int tileOfRow(int wanted) const;

private:
    std::vector<TreemapTile> m_tiles;
    std::vector<int> m_tops;
    std::vector<double> m_ranks;
    std::unordered_map<const FileNode *, int> m_rows;
    int m_smallFilesRow = -1;
};

/// A rectangle of the engine as Qt has it.
[[nodiscard]] QRectF toQRectF(const Rect &rect);

} // namespace corvane
