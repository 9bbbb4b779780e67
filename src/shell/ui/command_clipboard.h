#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Puts commands on the clipboard, and says for a while which one. Main thread only.
class CommandClipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The command that was copied last, for a short while; else empty.
    Q_PROPERTY(QString copied READ copied NOTIFY copiedChanged)

public:
    static constexpr int copiedStay = 2000; // milliseconds

    explicit CommandClipboard(QObject *parent = nullptr);

    [[nodiscard]] const QString &copied() const { return m_copied; }
    Q_INVOKABLE void copy(const QString &command);

signals:
    void copiedChanged();

private:
    void setCopied(const QString &command);

    QString m_copied;
    QTimer m_timer{this};
};

} // namespace corvane
