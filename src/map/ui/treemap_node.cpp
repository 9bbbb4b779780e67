#include "map/ui/treemap_node.h"

#include <cmath>

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGOpacityNode>

#include "map/ui/map_metrics.h"

namespace corvane {

namespace {

QRectF between(const QRectF &from, const QRectF &to, double part)
{
    const auto mix = [part](double a, double b) { return a + (b - a) * part; };
    return {mix(from.x(), to.x()), mix(from.y(), to.y()), mix(from.width(), to.width()),
            mix(from.height(), to.height())};
}

void moveTo(QSGNode *node, QSGNode *parent)
{
    if (!node || node->parent() == parent)
        return;
    node->parent()->removeChildNode(node);
    parent->appendChildNode(node);
}

QRectF wholeSource(const QSGImageNode *node)
{
    return {QPointF(0, 0), QSizeF(node->texture()->textureSize())};
}

/// Whatever is set counts as new and is drawn again, so what stays the same is left alone.
void place(QSGImageNode *node, QSGTexture::Filtering filtering, const QRectF &source, const QRectF &rect)
{
    if (node->filtering() != filtering)
        node->setFiltering(filtering);
    if (node->sourceRect() != source)
        node->setSourceRect(source);
    if (node->rect() != rect)
        node->setRect(rect);
}

} // namespace

TreemapNode::TreemapNode(QQuickWindow &window) : m_window(window)
{
    m_back = new QSGOpacityNode;
    m_front = new QSGOpacityNode;
    m_hoverRing = new RingNode(window);
    m_focusRing = new RingNode(window);
    for (QSGNode *child : {static_cast<QSGNode *>(m_back), static_cast<QSGNode *>(m_front),
                           static_cast<QSGNode *>(m_hoverRing), static_cast<QSGNode *>(m_focusRing)})
        appendChildNode(child);
    m_own = new QSGOpacityNode;
    m_tint = new QSGOpacityNode;
    m_front->appendChildNode(m_own);
    m_front->appendChildNode(m_tint);
}

QSGImageNode *TreemapNode::addPictureTo(QSGNode &parent, const QImage &picture)
{
    QSGImageNode *node = m_window.createImageNode();
    node->setOwnsTexture(true);
    node->setTexture(m_window.createTextureFromImage(picture, QQuickWindow::TextureIsOpaque));
    parent.appendChildNode(node);
    return node;
}

void TreemapNode::setPicture(const QImage &picture)
{
    delete m_picture;
    m_picture = addPictureTo(*m_back, picture);
}

void TreemapNode::setOtherPictures(const QImage &picture, const QImage &tinted)
{
    delete m_other;
    m_other = picture.isNull() ? nullptr : addPictureTo(*m_own, picture);
    delete m_tinted;
    m_tinted = tinted.isNull() ? nullptr : addPictureTo(*m_tint, tinted);
}

void TreemapNode::alignToPixels(QPointF origin, double devicePixelRatio)
{
    const auto toPixel = [devicePixelRatio](double at) { return std::round(at * devicePixelRatio) / devicePixelRatio; };
    QMatrix4x4 shift;
    shift.translate(static_cast<float>(toPixel(origin.x()) - origin.x()),
                    static_cast<float>(toPixel(origin.y()) - origin.y()));
    // A matrix that is set counts as new, and the software renderer then draws the whole map once more.
    if (matrix() != shift)
        setMatrix(shift);
}

void TreemapNode::showStill(const QRectF &area)
{
    moveTo(m_picture, m_back);
    place(m_picture, QSGTexture::Nearest, wholeSource(m_picture), area);
}

void TreemapNode::showBetween(const QRectF &area, const QRectF &tile, double part, bool inward)
{
    QSGImageNode *outer = inward ? m_other : m_picture;
    QSGImageNode *inner = inward ? m_picture : m_other;
    moveTo(outer, m_back);
    moveTo(inner, m_own);

    // Only what lies inside the area is drawn, so nothing has to be clipped.
    const QRectF seen = between(area, tile, part);
    const QSizeF pixels(outer->texture()->textureSize());
    const double scaleX = pixels.width() / area.width();
    const double scaleY = pixels.height() / area.height();
    place(outer, QSGTexture::Linear,
          QRectF(seen.x() * scaleX, seen.y() * scaleY, seen.width() * scaleX, seen.height() * scaleY), area);

    const double zoomX = area.width() / seen.width();
    const double zoomY = area.height() / seen.height();
    const QRectF inside((tile.x() - seen.x()) * zoomX, (tile.y() - seen.y()) * zoomY, tile.width() * zoomX,
                        tile.height() * zoomY);
    for (QSGImageNode *const node : {inner, m_tinted})
        place(node, QSGTexture::Linear, wholeSource(node), inside);
    m_tint->setOpacity(1 - part);
    m_front->setOpacity(MapMetrics::insideOpacity() + (1 - MapMetrics::insideOpacity()) * part);
}

} // namespace corvane
