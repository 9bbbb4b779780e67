#include "map/ui/rounded_fill.h"

#include <algorithm>
#include <cmath>

#include <QPainter>

namespace corvane {

namespace {

/// @param share of `above`, from 0 to 255
QRgb mixed(QRgb above, QRgb below, int share)
{
    const auto channel = [&](int ofAbove, int ofBelow) {
        return (ofAbove * share + ofBelow * (255 - share) + 127) / 255;
    };
    return qRgba(channel(qRed(above), qRed(below)), channel(qGreen(above), qGreen(below)),
                 channel(qBlue(above), qBlue(below)), channel(qAlpha(above), qAlpha(below)));
}

} // namespace

RoundedFill::Corner RoundedFill::cornerOf(double radius)
{
    if (radius <= 0)
        return {};
    Corner corner{.size = static_cast<int>(std::ceil(radius)), .coverage = {}};
    const int edge = 2 * corner.size;
    QImage shape(edge, edge, QImage::Format_ARGB32_Premultiplied);
    shape.fill(Qt::transparent);
    QPainter painter(&shape);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(0, 0, edge, edge), radius, radius);
    painter.end();
    for (int y = 0; y < corner.size; ++y) {
        for (int x = 0; x < corner.size; ++x)
            corner.coverage.push_back(qAlpha(shape.pixel(x, y)));
    }
    return corner;
}

void RoundedFill::fill(const QRect &pixels, double radius, QRgb color)
{
    const QRect inside = pixels.intersected(m_picture.rect());
    if (inside.isEmpty())
        return;
    radius = std::min(radius, std::min(pixels.width(), pixels.height()) / 2.0);
    auto known = m_corners.find(radius);
    if (known == m_corners.end())
        known = m_corners.emplace(radius, cornerOf(radius)).first;
    const Corner &corner = known->second;

    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(m_picture.scanLine(y));
        const int toEdge = std::min(y - pixels.top(), pixels.bottom() - y);
        const int cut = toEdge < corner.size ? corner.size : 0;
        const int first = std::max(pixels.left() + cut, inside.left());
        const int last = std::min(pixels.right() - cut, inside.right());
        if (first <= last)
            std::fill(line + first, line + last + 1, color);
        for (int x = 0; x < cut; ++x) {
            const int share = corner.coverage[static_cast<std::size_t>(toEdge * corner.size + x)];
            for (const int column : {pixels.left() + x, pixels.right() - x}) {
                if (column >= inside.left() && column <= inside.right())
                    line[column] = mixed(color, line[column], share);
            }
        }
    }
}

} // namespace corvane
