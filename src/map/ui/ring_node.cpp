#include "map/ui/ring_node.h"

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>

namespace corvane {

namespace {

QPainterPath rounded(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

/// How far the ring extends beyond the rectangle, in device pixels.
int reach(const RingStyle &style, double devicePixelRatio)
{
    return static_cast<int>(std::ceil(style.outer * devicePixelRatio));
}

} // namespace

RingNode::RingNode(QQuickWindow &window) : m_window(window) {}

RingNode::~RingNode() = default;

QImage RingNode::paint(const Picture &picture)
{
    QImage image(picture.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(picture.devicePixelRatio, picture.devicePixelRatio);

    const RingStyle &style = picture.style;
    const double margin = reach(style, picture.devicePixelRatio) / picture.devicePixelRatio;
    const QRectF rect = QRectF(QPointF(0, 0), QSizeF(picture.size) / picture.devicePixelRatio)
                            .adjusted(margin, margin, -margin, -margin);
    const double radius = picture.cornerRadius;
    const QPainterPath edge = rounded(rect, radius);
    const QPainterPath outside = rounded(rect.adjusted(-style.outer, -style.outer, style.outer, style.outer),
                                         radius > 0 ? radius + style.outer : 0);
    const QPainterPath inside = rounded(rect.adjusted(style.inner, style.inner, -style.inner, -style.inner),
                                        std::max(radius - style.inner, 0.0));
    painter.fillPath(outside.subtracted(edge), style.outerColor);
    painter.fillPath(edge.subtracted(inside), style.innerColor);
    return image;
}

void RingNode::show(const QRectF &rect, double cornerRadius, const RingStyle &style, double devicePixelRatio)
{
    const int margin = reach(style, devicePixelRatio);
    const QSize whole((rect.size() * devicePixelRatio).toSize() + 2 * QSize(margin, margin));
    const int corner = margin + static_cast<int>(std::ceil(std::max(cornerRadius, style.inner) * devicePixelRatio)) + 1;
    const Picture picture{whole.boundedTo(QSize(2 * corner + 1, 2 * corner + 1)), cornerRadius, devicePixelRatio,
                          style};
    if (!m_texture || picture != m_picture) {
        const std::unique_ptr<QSGTexture> previous = std::move(m_texture);
        m_picture = picture;
        m_texture.reset(m_window.createTextureFromImage(paint(picture)));
        for (QSGImageNode *&part : m_parts) {
            if (part) {
                part->setTexture(m_texture.get());
                continue;
            }
            // Set up the node before adding it to the scene: the software renderer reads its texture immediately.
            part = m_window.createImageNode();
            part->setFiltering(QSGTexture::Nearest);
            part->setTexture(m_texture.get());
            appendChildNode(part);
        }
    }

    // The middle row and column are a single pixel, stretched.
    const auto slices = [](int source, int target) {
        const int before = (source - 1) / 2;
        const int after = source - 1 - before;
        return std::array<std::array<int, 4>, 3>{{{0, before, 0, before},
                                                  {before, 1, before, target - before - after},
                                                  {before + 1, after, target - after, after}}};
    };
    const auto columns = slices(picture.size.width(), whole.width());
    const auto rows = slices(picture.size.height(), whole.height());
    const QPointF origin = rect.topLeft() - QPointF(margin, margin) / devicePixelRatio;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            const auto &[sourceX, sourceWidth, x, width] = columns[column];
            const auto &[sourceY, sourceHeight, y, height] = rows[row];
            QSGImageNode *part = m_parts[row * 3 + column];
            const QRectF target(origin + QPointF(x, y) / devicePixelRatio, QSizeF(width, height) / devicePixelRatio);
            const QRectF source(sourceX, sourceY, sourceWidth, sourceHeight);
            // Setting a value marks the node dirty even if the value is unchanged.
            if (part->rect() == target && part->sourceRect() == source)
                continue;
            part->setSourceRect(source);
            part->setRect(target);
        }
    }
}

void RingNode::hide()
{
    for (QSGImageNode *part : m_parts) {
        if (part && !part->rect().isNull())
            part->setRect(QRectF());
    }
}

} // namespace corvane
