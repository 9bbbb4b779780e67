#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// An item worked by keyboard as a whole, which knows whether its focus is to be seen: from the moment the
/// keyboard brings the focus or is used, until the pointer is. (A Control knows that too, but its role for
/// readers cannot be chosen.)
class KeyboardItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged)
    /// As a Control has it: what brought the focus.
    Q_PROPERTY(Qt::FocusReason focusReason READ focusReason NOTIFY visualFocusChanged)

public:
    explicit KeyboardItem(QQuickItem *parent = nullptr);

    [[nodiscard]] bool hasVisualFocus() const { return m_keyboardIsUsed && hasActiveFocus(); }

    [[nodiscard]] Qt::FocusReason focusReason() const
    {
        return m_keyboardIsUsed ? Qt::TabFocusReason : Qt::MouseFocusReason;
    }

    Q_INVOKABLE void useKeyboard();
    /// Takes the focus.
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
