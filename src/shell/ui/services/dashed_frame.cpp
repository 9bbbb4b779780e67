#include "shell/ui/services/dashed_frame.h"

#include <QPainter>

#include "shell/ui/services/services_metrics.h"
#include "shell/ui/theme.h"

namespace corvane {

DashedFrame::DashedFrame(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    connect(Theme::instance(), &Theme::changed, this, [this] { update(); });
}

void DashedFrame::setRadius(double radius)
{
    if (radius == m_radius)
        return;
    m_radius = radius;
    update();
    emit radiusChanged();
}

void DashedFrame::setHighlighted(bool highlighted)
{
    if (highlighted == m_highlighted)
        return;
    m_highlighted = highlighted;
    update();
    emit highlightedChanged();
}

void DashedFrame::paint(QPainter *painter)
{
    constexpr double lineWidth = Theme::hairlineWidth();
    constexpr double dash = ServicesMetrics::dashLength();
    const Theme &theme = *Theme::instance();
    QPen pen(m_highlighted ? theme.accent() : theme.controlBorder(), lineWidth);
    pen.setDashPattern({dash, dash});
    pen.setCapStyle(Qt::FlatCap);
    const double inset = lineWidth / 2;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    if (m_highlighted)
        painter->setBrush(theme.accentSoft());
    painter->drawRoundedRect(boundingRect().adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
}

} // namespace corvane
