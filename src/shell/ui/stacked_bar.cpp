#include "shell/ui/stacked_bar.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <QFontMetricsF>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QQuickWindow>
#include <QSGImageNode>

#include "shell/ui/theme.h"

namespace corvane {

StackedBar::StackedBar(QQuickItem *parent) : KeyboardItem(parent)
{
    setFlag(ItemHasContents);
    setActiveFocusOnTab(false);
    connect(Theme::instance(), &Theme::changed, this, &StackedBar::redraw);
}

void StackedBar::setParts(const QList<StackedBarPart> &parts)
{
    if (m_parts == parts)
        return;
    m_parts = parts;
    layOut();
    emit partsChanged();
    if (indexOf(m_current) < 0)
        setCurrent({});
    else
        emit currentChanged(); // its title, size or colour may have changed
}

void StackedBar::setRest(double bytes)
{
    if (m_rest == bytes)
        return;
    m_rest = bytes;
    layOut();
    emit restChanged();
}

void StackedBar::setCurrent(const QString &id)
{
    const QString wanted = indexOf(id) < 0 ? QString() : id;
    if (m_current == wanted)
        return;
    m_current = wanted;
    redraw();
    emit currentChanged();
}

StackedBarPart StackedBar::currentPart() const
{
    const qsizetype index = indexOf(m_current);
    return index < 0 ? StackedBarPart() : m_parts[index];
}

void StackedBar::setLabelledPart(const QString &id)
{
    if (m_labelledPart == id)
        return;
    m_labelledPart = id;
    redraw();
    emit labelledPartChanged();
}

void StackedBar::setRadius(qreal radius)
{
    if (qFuzzyCompare(m_radius, radius))
        return;
    m_radius = radius;
    redraw();
    emit radiusChanged();
}

void StackedBar::setGap(qreal gap)
{
    if (qFuzzyCompare(m_gap, gap))
        return;
    m_gap = gap;
    layOut();
    emit gapChanged();
}

void StackedBar::setInteractive(bool interactive)
{
    if (m_interactive == interactive)
        return;
    m_interactive = interactive;
    setAcceptHoverEvents(interactive);
    setAcceptedMouseButtons(interactive ? Qt::LeftButton : Qt::NoButton);
    setActiveFocusOnTab(interactive);
    emit interactiveChanged();
}

qsizetype StackedBar::indexOf(const QString &id) const
{
    const auto position = std::ranges::find(m_parts, id, &StackedBarPart::id);
    return position == m_parts.end() ? -1 : std::distance(m_parts.begin(), position);
}

void StackedBar::layOut()
{
    std::vector<std::int64_t> sizes;
    sizes.reserve(static_cast<std::size_t>(m_parts.size()));
    for (const StackedBarPart &part : m_parts)
        sizes.push_back(part.size);
    m_layout = barLayout(
        {.sizes = sizes, .rest = m_rest, .width = width(), .gap = m_gap, .minimum = Theme::stackedBarPartMinimum()});
    redraw();
}

void StackedBar::redraw()
{
    m_isStale = true;
    update();
}

void StackedBar::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    KeyboardItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        layOut();
}

void StackedBar::itemChange(ItemChange change, const ItemChangeData &data)
{
    KeyboardItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        redraw();
}

QImage StackedBar::picture(qreal pixelRatio) const
{
    QImage image((size() * pixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(boundingRect(), m_radius, m_radius);
    constexpr qreal labelInset = Theme::stackedBarLabelInset();
    const Theme &theme = *Theme::instance();
    for (qsizetype i = 0; i < m_parts.size(); ++i) {
        const StackedBarPart &part = m_parts[i];
        const BarPart &place = m_layout[static_cast<std::size_t>(i)];
        // Snap to whole pixels, so that the gaps are sharp and of equal width.
        const qreal left = std::round(place.x * pixelRatio) / pixelRatio;
        const qreal right = std::round((place.x + place.width) * pixelRatio) / pixelRatio;
        const QRectF rect(left, 0, right - left, height());
        const bool isLabelled = part.id == m_labelledPart;
        QColor color = part.color;
        if (!m_current.isEmpty() && part.id != m_current && !isLabelled)
            color.setAlphaF(color.alphaF() * Theme::stackedBarOtherOpacity());
        QPainterPath shape;
        shape.addRect(rect);
        painter.fillPath(shape.intersected(outline), color);
        if (isLabelled &&
            QFontMetricsF(Theme::secondaryFont()).horizontalAdvance(part.title) + 2 * labelInset <= rect.width()) {
            painter.setFont(Theme::secondaryFont());
            painter.setPen(theme.t2());
            painter.drawText(rect.adjusted(labelInset, 0, -labelInset, 0), Qt::AlignVCenter | Qt::AlignLeft,
                             part.title);
        }
    }
    return image;
}

QSGNode *StackedBar::updatePaintNode(QSGNode *node, UpdatePaintNodeData *)
{
    std::unique_ptr<QSGImageNode> shown(static_cast<QSGImageNode *>(node));
    if (width() < 1 || height() < 1)
        return nullptr;
    if (!shown) {
        shown.reset(window()->createImageNode());
        shown->setOwnsTexture(true);
        m_isStale = true;
    }
    if (m_isStale)
        shown->setTexture(window()->createTextureFromImage(picture(window()->effectiveDevicePixelRatio())));
    m_isStale = false;
    shown->setRect(boundingRect());
    return shown.release();
}

QString StackedBar::partAt(QPointF point) const
{
    // A gap belongs to the part on its left, so that hit tests never fall between two parts.
    for (std::size_t i = 0; i < m_layout.size(); ++i) {
        const BarPart &place = m_layout[i];
        if (point.x() >= place.x && point.x() < place.x + place.width + m_gap)
            return m_parts[static_cast<qsizetype>(i)].id;
    }
    return {};
}

void StackedBar::hoverMoveEvent(QHoverEvent *event)
{
    // The window also sends hover events after frames, in case items moved under a resting pointer; those must not
    // override the keyboard's choice.
    if (m_pointer == event->position())
        return;
    m_pointer = event->position();
    setCurrent(partAt(event->position()));
}

void StackedBar::hoverLeaveEvent(QHoverEvent *)
{
    m_pointer.reset();
    setCurrent({});
}

void StackedBar::mousePressEvent(QMouseEvent *event)
{
    usePointer();
    m_pointer = event->position();
    setCurrent(partAt(event->position()));
}

void StackedBar::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_current.isEmpty() && contains(event->position()) && partAt(event->position()) == m_current)
        emit chosen(m_current);
}

void StackedBar::step(qsizetype by)
{
    if (m_parts.isEmpty())
        return;
    const qsizetype last = m_parts.size() - 1;
    const qsizetype index = indexOf(m_current);
    // If no part is current, a step to the right enters at the left end and vice versa.
    const qsizetype from = index >= 0 ? index : by > 0 ? -1 : last + 1;
    setCurrent(m_parts[std::clamp<qsizetype>(from + by, 0, last)].id);
}

void StackedBar::keyPressEvent(QKeyEvent *event)
{
    event->setAccepted(m_interactive);
    if (!m_interactive)
        return;
    switch (event->key()) {
    case Qt::Key_Left:
        step(-1);
        break;
    case Qt::Key_Right:
        step(1);
        break;
    case Qt::Key_Home:
        step(-m_parts.size());
        break;
    case Qt::Key_End:
        step(m_parts.size());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_current.isEmpty())
            event->ignore();
        else
            emit chosen(m_current);
        return;
    case Qt::Key_Escape:
        if (m_current.isEmpty())
            event->ignore();
        setCurrent({});
        return;
    default:
        event->ignore();
        return;
    }
    useKeyboard();
}

void StackedBar::focusOutEvent(QFocusEvent *event)
{
    KeyboardItem::focusOutEvent(event);
    setCurrent({});
}

} // namespace corvane
