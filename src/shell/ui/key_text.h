#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// How a shortcut is written on this system ("Ctrl+R", "⌘R").
class KeyText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// `shortcut` is what an Action holds: a text, a key sequence or a standard key; empty for none.
    Q_INVOKABLE [[nodiscard]] static QString text(const QVariant &shortcut);
};

} // namespace corvane
