#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The text of a shortcut in this system's notation ("Ctrl+R", "⌘R").
class KeyText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// `shortcut` is the value of an Action: a text, a key sequence or a standard key; empty for none.
    Q_INVOKABLE [[nodiscard]] static QString text(const QVariant &shortcut);
};

} // namespace corvane
