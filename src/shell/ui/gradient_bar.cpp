#include "shell/ui/gradient_bar.h"

#include <algorithm>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "shell/ui/theme.h"

namespace corvane {

GradientBar::GradientBar(QQuickItem *parent) : QQuickPaintedItem(parent)
{
    connect(Theme::instance(), &Theme::changed, this, [this] { update(); });
}

void GradientBar::setFraction(double fraction)
{
    if (fraction == m_fraction)
        return;
    m_fraction = fraction;
    update();
    emit fractionChanged();
}

void GradientBar::setRadius(double radius)
{
    if (radius == m_radius)
        return;
    m_radius = radius;
    update();
    emit radiusChanged();
}

void GradientBar::setRoundPart(bool round)
{
    if (round == m_roundPart)
        return;
    m_roundPart = round;
    update();
    emit roundPartChanged();
}

void GradientBar::paint(QPainter *painter)
{
    const Theme &theme = *Theme::instance();
    const QRectF bar = boundingRect();
    const QRectF part(bar.topLeft(), QSizeF(bar.width() * std::clamp(m_fraction, 0.0, 1.0), bar.height()));
    QPainterPath shape;
    shape.addRoundedRect(bar, m_radius, m_radius);
    QPainterPath partShape;
    partShape.addRoundedRect(part, m_roundPart ? m_radius : 0, m_roundPart ? m_radius : 0);

    QLinearGradient gradient(part.topLeft(), part.topRight());
    gradient.setColorAt(0, Theme::brandA());
    gradient.setColorAt(1, Theme::brandB());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(shape.subtracted(partShape), theme.track());
    painter->fillPath(shape.intersected(partShape), gradient);
}

} // namespace corvane
