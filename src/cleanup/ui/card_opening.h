#pragma once

#include <QObject>
#include <QVariantAnimation>

namespace corvane {

/// The expansion of a card, animated, or immediate with reduced motion. Main thread only.
class CardOpening : public QObject {
    Q_OBJECT

public:
    explicit CardOpening(QObject *parent = nullptr);

    /// The target state of the animation.
    [[nodiscard]] bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);
    /// The expanded fraction, from 0 (collapsed) to 1.
    [[nodiscard]] double part() const { return m_part; }
    /// Whether any of its contents are visible.
    [[nodiscard]] bool isOpen() const { return m_expanded || m_part > 0; }

signals:
    void partChanged();
    /// Emitted when the collapsing animation ends.
    void closed();

private:
    void setPart(double part);

    bool m_expanded = false;
    double m_part = 0;
    QVariantAnimation m_movement;
};

} // namespace corvane
