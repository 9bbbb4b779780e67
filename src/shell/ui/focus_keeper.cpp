#include "shell/ui/focus_keeper.h"

#include <utility>

#include <QFocusEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>

namespace corvane {

namespace {

bool isOfKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

/// Whether the reason identifies the device that moved the focus; other reasons only say that it moved.
bool isOfUser(Qt::FocusReason reason)
{
    return isOfKeyboard(reason) || reason == Qt::MouseFocusReason;
}

bool isAbove(const QQuickItem &item, const QQuickItem &other)
{
    return item.mapToScene({0, item.height()}).y() <= other.mapToScene({0, 0}).y();
}

bool isOfUse(const QQuickItem &item)
{
    return item.isEnabled() && item.isVisible();
}

/// Moves the focus away from a control that was disabled or hidden, unless another item has taken it meanwhile.
void moveOn(QQuickItem &from)
{
    const QQuickWindow *const window = from.window();
    if (window == nullptr || isOfUse(from))
        return;
    if (const QQuickItem *now = window->activeFocusItem();
        now != nullptr && now->activeFocusOnTab() && now->isEnabled())
        return;
    QQuickItem *next = from.nextItemInFocusChain(true);
    // The focus chain wraps from the last item to the first, which is too far away.
    if (isAbove(*next, from))
        next = from.nextItemInFocusChain(false);
    next->forceActiveFocus(Qt::TabFocusReason);
}

} // namespace

void FocusKeeper::install()
{
    static bool isInstalled = false;
    if (!std::exchange(isInstalled, true))
        qGuiApp->installEventFilter(new FocusKeeper(qGuiApp));
}

bool FocusKeeper::eventFilter(QObject *receiver, QEvent *event)
{
    const bool isFocusEvent = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    auto *const item = isFocusEvent ? qobject_cast<QQuickItem *>(receiver) : nullptr;
    if (item == nullptr)
        return false;

    if (event->type() == QEvent::FocusOut) {
        // How the item got the focus; the event only says why it lost it. By name, because Qt's items with this
        // property, its controls and text fields, are private types in C++.
        const QVariant reason = receiver->property("focusReason");
        if (reason.isValid() && isOfUser(static_cast<Qt::FocusReason>(reason.toInt())))
            m_byKeyboard = isOfKeyboard(static_cast<Qt::FocusReason>(reason.toInt()));
        if (m_byKeyboard && !isOfUse(*item))
            QMetaObject::invokeMethod(
                item, [item] { moveOn(*item); }, Qt::QueuedConnection);
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
