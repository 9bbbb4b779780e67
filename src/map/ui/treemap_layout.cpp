#include "map/ui/treemap_layout.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace corvane {

namespace {

/// A rectangle turned so that the direction looked in is that of growing `near` and `far`.
struct Turned {
    double near;
    double far;
    double low;
    double high;
};

Turned turned(const Rect &rect, TreemapLayout::Direction direction)
{
    switch (direction) {
    case TreemapLayout::Direction::right:
        return {rect.x, rect.x + rect.width, rect.y, rect.y + rect.height};
    case TreemapLayout::Direction::left:
        return {-rect.x - rect.width, -rect.x, rect.y, rect.y + rect.height};
    case TreemapLayout::Direction::down:
        return {rect.y, rect.y + rect.height, rect.x, rect.x + rect.width};
    case TreemapLayout::Direction::up:
        break;
    }
    return {-rect.y - rect.height, -rect.y, rect.x, rect.x + rect.width};
}

} // namespace

TreemapLayout::TreemapLayout(const FileNode &folder, QSizeF size)
    : m_tiles(TreemapBuilder::tiles(folder, {0, 0, size.width(), size.height()}))
{
    const std::size_t count = m_tiles.size();
    m_tops.resize(count);
    m_ranks.resize(count);
    for (std::size_t i = 0; i < count;) {
        m_tops[i] = static_cast<int>(i);
        std::size_t end = i + 1;
        while (end < count && m_tiles[end].depth > 0)
            ++end;
        const std::size_t nested = end - i - 1;
        for (std::size_t k = 0; k < nested; ++k) {
            m_tops[i + 1 + k] = static_cast<int>(i);
            m_ranks[i + 1 + k] = nested > 1 ? static_cast<double>(k) / static_cast<double>(nested - 1) : 0;
        }
        i = end;
    }
    const std::size_t shown = std::min(folder.children.size(), TreemapBuilder::topLimit);
    for (std::size_t i = 0; i < shown; ++i)
        m_rows.emplace(folder.children[i].get(), static_cast<int>(i));
    if (shown == folder.children.size())
        m_smallFilesRow = static_cast<int>(shown);
}

QRectF TreemapLayout::rect(int index) const
{
    return toQRectF(tile(index).rect);
}

TileRole TreemapLayout::role(int index) const
{
    const TreemapTile &it = tile(index);
    if (it.depth > 0)
        return TileRole::nested;
    return it.hasNested ? TileRole::frame : TileRole::leaf;
}

int TreemapLayout::at(QPointF point) const
{
    // A tile is followed by the tiles inside it, so the last one that holds the point is the deepest.
    int found = -1;
    for (int i = 0; i < count(); ++i) {
        const TreemapTile &it = tile(i);
        const bool holds = it.depth == 0 ? it.rect.inset(-TreemapBuilder::topInset).contains(point.x(), point.y())
                                         : it.rect.contains(point.x(), point.y());
        if (holds)
            found = i;
    }
    return found;
}

int TreemapLayout::top(int index) const
{
    return m_tops[static_cast<std::size_t>(index)];
}

int TreemapLayout::indexOf(const FileNode *node) const
{
    const auto position =
        std::find_if(m_tiles.begin(), m_tiles.end(), [node](const auto &it) { return node && it.node.get() == node; });
    return position == m_tiles.end() ? -1 : static_cast<int>(position - m_tiles.begin());
}

int TreemapLayout::neighbour(int index, Direction direction) const
{
    const Turned from = turned(tile(top(index)).rect, direction);
    const double middle = (from.low + from.high) / 2;
    int best = -1;
    std::tuple<bool, double, double> bestDistance;
    for (int i = 0; i < count(); ++i) {
        if (tile(i).depth != 0)
            continue;
        const Turned to = turned(tile(i).rect, direction);
        if (to.near < from.far)
            continue;
        const bool beside = to.low >= from.high || to.high <= from.low;
        const double aside = std::max({to.low - middle, middle - to.high, 0.0});
        // In whole points: the tiles along one edge are equally near, whatever the last bits say.
        const std::tuple distance(beside, std::round(to.near - from.far), aside);
        if (best < 0 || distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return best;
}

int TreemapLayout::row(int index) const
{
    const TreemapTile &it = tile(top(index));
    if (!it.node)
        return m_smallFilesRow;
    const auto position = m_rows.find(it.node.get());
    return position == m_rows.end() ? -1 : position->second;
}

int TreemapLayout::tileOfRow(int wanted) const
{
    if (wanted < 0)
        return -1;
    for (int i = 0; i < count(); ++i) {
        if (tile(i).depth == 0 && row(i) == wanted)
            return i;
    }
    return -1;
}

QRectF toQRectF(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace corvane
