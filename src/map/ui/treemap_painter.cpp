#include "map/ui/treemap_painter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include "map/treemap_builder.h"
#include "map/ui/map_metrics.h"
#include "map/ui/rounded_fill.h"
#include "shell/ui/theme.h"

namespace corvane {

namespace {

constexpr qsizetype fewestCharacters = 8; // of a name that had to be shortened

constexpr int textFlags = Qt::AlignVCenter | Qt::TextSingleLine;

QPainterPath outline(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

} // namespace

TreemapPainter::TreemapPainter(TileTones &tones, TileFonts fonts) : m_tones(tones), m_fonts(std::move(fonts)) {}

double TreemapPainter::cornerRadius(const QRectF &rect, TileRole role)
{
    if (std::min(rect.width(), rect.height()) < MapMetrics::smallestRounded())
        return 0;
    switch (role) {
    case TileRole::frame:
        return Theme::radiusFrame();
    case TileRole::leaf:
        return Theme::radiusLeaf();
    case TileRole::nested:
        break;
    }
    return Theme::radiusNested();
}

QRectF TreemapPainter::snapped(const QRectF &rect, double devicePixelRatio)
{
    const auto snap = [&](double value) { return std::round(value * devicePixelRatio) / devicePixelRatio; };
    const double pixel = 1 / devicePixelRatio;
    const double left = snap(rect.left());
    const double top = snap(rect.top());
    return {left, top, std::max(snap(rect.right()) - left, pixel), std::max(snap(rect.bottom()) - top, pixel)};
}

void TreemapPainter::paint(QImage &picture, std::span<const TileFace> tiles)
{
    const double ratio = picture.devicePixelRatio();
    RoundedFill grounds(picture);
    for (const TileFace &tile : tiles) {
        const QRectF rect = snapped(tile.rect, ratio);
        const QRect pixels(QRectF(rect.topLeft() * ratio, rect.size() * ratio).toRect());
        grounds.fill(pixels, cornerRadius(tile.rect, tile.role) * ratio,
                     m_tones.fill(tile.color, tile.role, tile.rank).rgb());
    }

    // No tile lies on the label of another.
    QPainter painter(&picture);
    for (const TileFace &tile : tiles) {
        const QRectF rect = snapped(tile.rect, ratio);
        if (tile.role == TileRole::frame)
            paintFrameLabel(painter, tile, rect);
        else
            paintLabel(painter, tile, rect);
    }
    for (const TileFace &tile : tiles) {
        if (tile.hatched)
            paintSelection(painter, tile, snapped(tile.rect, ratio));
    }
}

void TreemapPainter::paintFrameLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const
{
    const QFontMetricsF nameMetrics(m_fonts.name);
    const QFontMetricsF sizeMetrics(m_fonts.size);
    const double nameWidth = nameMetrics.horizontalAdvance(tile.label);
    const double sizeWidth = sizeMetrics.horizontalAdvance(tile.sizeText);
    const QRectF band(rect.left() + MapMetrics::frameInset(), rect.top(), rect.width() - 2 * MapMetrics::frameInset(),
                      TreemapBuilder::labelBand);

    const bool withSize = nameWidth + sizeWidth + MapMetrics::frameSizeGap() <= rect.width();
    painter.setFont(m_fonts.name);
    painter.setPen(m_tones.ink(tile.color));
    painter.drawText(band, textFlags | Qt::AlignLeft,
                     nameWidth <= band.width() ? tile.label
                                               : nameMetrics.elidedText(tile.label, Qt::ElideRight, band.width()));
    if (withSize) {
        painter.setFont(m_fonts.size);
        painter.setPen(m_tones.sizeInk(tile.color));
        painter.drawText(band, textFlags | Qt::AlignRight, tile.sizeText);
    }
}

void TreemapPainter::paintLabel(QPainter &painter, const TileFace &tile, const QRectF &rect) const
{
    const bool nested = tile.role == TileRole::nested;
    const TileLabelMetrics &place = nested ? MapMetrics::nestedLabel : MapMetrics::leafLabel;
    const double width = rect.width() - place.left - place.right;
    if (tile.rect.height() < place.smallestHeight || width <= 0)
        return;

    const QFont &font = nested ? m_fonts.nestedName : m_fonts.name;
    const QFontMetricsF metrics(font);
    QString name = tile.label;
    if (metrics.horizontalAdvance(name) > width) {
        name = metrics.elidedText(name, Qt::ElideRight, width);
        if (name.size() < fewestCharacters)
            return;
    }
    QRectF line(rect.left() + place.left, rect.top() + place.top, width, place.lineHeight);
    painter.setFont(font);
    painter.setPen(m_tones.ink(tile.color));
    painter.drawText(line, textFlags | Qt::AlignLeft, name);

    if (tile.rect.height() < place.smallestHeightWithSize ||
        QFontMetricsF(m_fonts.size).horizontalAdvance(tile.sizeText) > width)
        return;
    line.translate(0, place.lineHeight);
    painter.setFont(m_fonts.size);
    painter.setPen(m_tones.sizeInk(tile.color));
    painter.drawText(line, textFlags | Qt::AlignLeft, tile.sizeText);
}

void TreemapPainter::paintSelection(QPainter &painter, const TileFace &tile, const QRectF &rect) const
{
    const QColor ink = m_tones.ink(tile.color);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(outline(rect, cornerRadius(tile.rect, tile.role)), Qt::IntersectClip);
    QColor hatch = ink;
    hatch.setAlphaF(static_cast<float>(MapMetrics::hatchOpacity()));
    painter.setPen(QPen(hatch, 1));
    const double spacing = MapMetrics::hatchSpacing() * std::sqrt(2.0);
    for (double offset = spacing / 2; offset < rect.width() + rect.height(); offset += spacing)
        painter.drawLine(QPointF(rect.left() + offset, rect.top()),
                         QPointF(rect.left() + offset - rect.height(), rect.bottom()));
    painter.restore();

    if (!tile.checked || std::min(tile.rect.width(), tile.rect.height()) < MapMetrics::checkSmallestTile())
        return;
    constexpr double side = MapMetrics::checkDisc();
    constexpr double away = MapMetrics::checkInset() + side;
    const QRectF disc(rect.right() - away, rect.bottom() - away, side, side);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawEllipse(disc);
    painter.setPen(QPen(m_tones.onInk(), MapMetrics::checkStroke(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const QPointF check[]{disc.topLeft() + QPointF(4.8, 8.4), disc.topLeft() + QPointF(7, 10.6),
                          disc.topLeft() + QPointF(11.2, 5.8)};
    painter.drawPolyline(check, 3);
}

} // namespace corvane
