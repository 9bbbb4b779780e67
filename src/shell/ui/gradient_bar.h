#pragma once

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// A bar of the disk: the used part in the brand's gradient over the track. Painted, because gradients with rounded
/// corners are jagged in the software renderer.
class GradientBar : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double fraction READ fraction WRITE setFraction NOTIFY fractionChanged)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(bool roundPart READ roundPart WRITE setRoundPart NOTIFY roundPartChanged)

public:
    explicit GradientBar(QQuickItem *parent = nullptr);

    /// The part that is filled, from 0 to 1.
    [[nodiscard]] double fraction() const { return m_fraction; }
    void setFraction(double fraction);
    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);
    /// Whether the filled part has a rounded end, not just the track.
    [[nodiscard]] bool roundPart() const { return m_roundPart; }
    void setRoundPart(bool round);

    void paint(QPainter *painter) override;

signals:
    void fractionChanged();
    void radiusChanged();
    void roundPartChanged();

private:
    double m_fraction = 0;
    double m_radius = 0;
    bool m_roundPart = false;
};

} // namespace corvane
