#include "shell/ui/keyboard_item.h"

#include <QFocusEvent>

namespace corvane {

KeyboardItem::KeyboardItem(QQuickItem *parent) : QQuickItem(parent)
{
    setActiveFocusOnTab(true);
}

void KeyboardItem::useKeyboard()
{
    if (m_keyboardIsUsed)
        return;
    m_keyboardIsUsed = true;
    emit visualFocusChanged();
}

void KeyboardItem::usePointer()
{
    m_keyboardIsUsed = false;
    forceActiveFocus(Qt::MouseFocusReason);
    emit visualFocusChanged();
}

void KeyboardItem::focusInEvent(QFocusEvent *event)
{
    QQuickItem::focusInEvent(event);
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_keyboardIsUsed = true;
        break;
    case Qt::MouseFocusReason:
        m_keyboardIsUsed = false;
        break;
    default: // returning from a menu or another window: unchanged
        break;
    }
    emit visualFocusChanged();
}

void KeyboardItem::focusOutEvent(QFocusEvent *event)
{
    QQuickItem::focusOutEvent(event);
    emit visualFocusChanged();
}

} // namespace corvane
