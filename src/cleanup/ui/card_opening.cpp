#include "cleanup/ui/card_opening.h"

#include "shell/ui/theme.h"

namespace corvane {

CardOpening::CardOpening(QObject *parent) : QObject(parent)
{
    m_movement.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_movement, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { setPart(value.toDouble()); });
}

void CardOpening::setExpanded(bool expanded)
{
    if (expanded == m_expanded)
        return;
    m_expanded = expanded;
    const double end = expanded ? 1 : 0;
    m_movement.stop();
    const int duration = Theme::instance()->motion(Theme::expandDuration());
    if (duration == 0) {
        setPart(end);
        return;
    }
    m_movement.setDuration(duration);
    m_movement.setStartValue(m_part);
    m_movement.setEndValue(end);
    m_movement.start();
}

void CardOpening::setPart(double part)
{
    if (part == m_part)
        return;
    m_part = part;
    emit partChanged();
    if (!isOpen())
        emit closed();
}

} // namespace corvane
