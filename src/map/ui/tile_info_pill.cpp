#include "map/ui/tile_info_pill.h"

#include <algorithm>

#include "core/store/qt_words.h"
#include "map/ui/map_metrics.h"
#include "shell/ui/node_actions.h"

namespace corvane {

namespace {

/// The position along one axis: after the pointer, else before it, else as close as the bounds allow.
double placed(double pointer, double gap, double length, double start, double end)
{
    if (pointer + gap + length <= end)
        return pointer + gap;
    if (pointer - gap - length >= start)
        return pointer - gap - length;
    return std::max(start, end - length);
}

} // namespace

TileInfoPill::TileInfoPill(const TreemapTile &tile)
    : title(displayText(tile.label)), size(tile.size), opens(opensInMap(tile.node.get()))
{
}

QString TileInfoPill::info(double percent) const
{
    QString text = sizeText(size) + QStringLiteral(" · ") + percentText(percent);
    if (opens)
        text += QStringLiteral(" · click to open");
    return text;
}

QPointF TileInfoPill::place(QPointF pointer, QSizeF panel, const QRectF &bounds)
{
    return {placed(pointer.x(), MapMetrics::pillRight(), panel.width(), bounds.left(), bounds.right()),
            placed(pointer.y(), MapMetrics::pillBelow(), panel.height(), bounds.top(), bounds.bottom())};
}

} // namespace corvane
