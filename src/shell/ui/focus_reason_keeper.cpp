#include "shell/ui/focus_reason_keeper.h"

#include <utility>

#include <QFocusEvent>
#include <QGuiApplication>
#include <QQuickItem>

namespace corvane {

namespace {

bool isOfKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

/// Whether the reason tells by what means the user moved the focus; all others say only that it moved.
bool isOfUser(Qt::FocusReason reason)
{
    return isOfKeyboard(reason) || reason == Qt::MouseFocusReason;
}

} // namespace

void FocusReasonKeeper::install()
{
    static bool isInstalled = false;
    if (!std::exchange(isInstalled, true))
        qGuiApp->installEventFilter(new FocusReasonKeeper(qGuiApp));
}

bool FocusReasonKeeper::eventFilter(QObject *receiver, QEvent *event)
{
    const bool isFocusEvent = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (!isFocusEvent || qobject_cast<QQuickItem *>(receiver) == nullptr)
        return false;

    if (event->type() == QEvent::FocusOut) {
        const QVariant reason = receiver->property("focusReason");
        if (reason.isValid() && isOfUser(static_cast<Qt::FocusReason>(reason.toInt())))
            m_byKeyboard = isOfKeyboard(static_cast<Qt::FocusReason>(reason.toInt()));
        return false;
    }

    const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
    if (isOfUser(reason)) {
        m_byKeyboard = isOfKeyboard(reason);
        return false;
    }
    if (!m_byKeyboard)
        return false;
    QFocusEvent asByKeyboard(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(receiver, &asByKeyboard);
    return true;
}

} // namespace corvane
