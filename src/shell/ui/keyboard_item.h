#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// An item operated by keyboard as a whole, which tracks whether its focus should be visible: from the moment the
/// keyboard focuses or operates it, until the pointer is used. (A Control tracks that too, but its accessible role is
/// fixed.)
class KeyboardItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged)
    /// Same as the property of a Control: how the item got the focus.
    Q_PROPERTY(Qt::FocusReason focusReason READ focusReason NOTIFY visualFocusChanged)

public:
    explicit KeyboardItem(QQuickItem *parent = nullptr);

    [[nodiscard]] bool hasVisualFocus() const { return m_keyboardIsUsed && hasActiveFocus(); }

    [[nodiscard]] Qt::FocusReason focusReason() const
    {
        return m_keyboardIsUsed ? Qt::TabFocusReason : Qt::MouseFocusReason;
    }

    Q_INVOKABLE void useKeyboard();
    /// Takes the focus as if clicked.
    Q_INVOKABLE void usePointer();

signals:
    void visualFocusChanged();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    bool m_keyboardIsUsed = false;
};

} // namespace corvane
