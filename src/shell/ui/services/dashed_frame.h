#pragma once

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// A dashed, rounded outline. A Rectangle only has solid borders.
class DashedFrame : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(bool highlighted READ isHighlighted WRITE setHighlighted NOTIFY highlightedChanged)

public:
    explicit DashedFrame(QQuickItem *parent = nullptr);

    [[nodiscard]] double radius() const { return m_radius; }
    void setRadius(double radius);
    [[nodiscard]] bool isHighlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted);

    void paint(QPainter *painter) override;

signals:
    void radiusChanged();
    void highlightedChanged();

private:
    double m_radius = 0;
    bool m_highlighted = false;
};

} // namespace corvane
