#pragma once

#include <QObject>
#include <QVariantAnimation>

namespace corvane {

/// How far a card is open: it opens and closes in a movement, or at once under reduced motion. Main thread only.
class CardOpening : public QObject {
    Q_OBJECT

public:
    explicit CardOpening(QObject *parent = nullptr);

    /// What it is, or is on the way to.
    [[nodiscard]] bool isExpanded() const { return m_expanded; }
    void setExpanded(bool expanded);
    /// From 0, closed, to 1.
    [[nodiscard]] double part() const { return m_part; }
    /// Whether anything of its inside is to be seen.
    [[nodiscard]] bool isOpen() const { return m_expanded || m_part > 0; }

signals:
    void partChanged();
    /// It has come to rest closed.
    void closed();

private:
    void setPart(double part);

    bool m_expanded = false;
    double m_part = 0;
    QVariantAnimation m_movement;
};

} // namespace corvane
