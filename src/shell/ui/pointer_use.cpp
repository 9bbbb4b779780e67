#include "shell/ui/pointer_use.h"

#include <utility>

#include <QGuiApplication>
#include <QMouseEvent>

namespace corvane {

PointerUse::PointerUse(QObject *parent) : QObject(parent)
{
    qGuiApp->installEventFilter(this);
}

bool PointerUse::eventFilter(QObject *receiver, QEvent *event)
{
    if (!receiver->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        setActive(false);
        break;
    case QEvent::MouseButtonPress:
        setActive(true);
        break;
    case QEvent::MouseMove: {
        // Windows also receive such events when the pointer has not moved.
        const QPointF position = static_cast<const QMouseEvent *>(event)->globalPosition();
        const std::optional<QPointF> before = std::exchange(m_position, position);
        if (before && *before != position)
            setActive(true);
        break;
    }
    default:
        break;
    }
    return false;
}

void PointerUse::setActive(bool active)
{
    if (std::exchange(m_isActive, active) != active)
        emit activeChanged();
}

} // namespace corvane
