#pragma once

#include <optional>

#include <QObject>
#include <QPointF>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Whether the user works with the pointer: not from a key press until the pointer moves or a button is pressed. A
/// control that appears under a resting pointer is hovered as well; this tells the two apart. Created by the QML
/// engine. Main thread only.
class PointerUse : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool active READ isActive NOTIFY activeChanged)

public:
    explicit PointerUse(QObject *parent = nullptr);

    [[nodiscard]] bool isActive() const { return m_isActive; }

    bool eventFilter(QObject *receiver, QEvent *event) override;

signals:
    void activeChanged();

private:
    void setActive(bool active);

    bool m_isActive = true;
    std::optional<QPointF> m_position; // on the screen, points
};

} // namespace corvane
