#pragma once

#include <optional>
#include <vector>

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/bar_layout.h"
#include "shell/ui/keyboard_item.h"

namespace corvane {

/// One part of a stacked bar; a value type for QML.
struct StackedBarPart {
    Q_GADGET
    QML_VALUE_TYPE(stackedBarPart)
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString info MEMBER info)
    Q_PROPERTY(QColor color MEMBER color)

public:
    QString id;    ///< not empty, unique within the bar
    QString title; ///< what the part is
    QString info;  ///< its size, for display
    QColor color;
    qint64 size = 0; ///< bytes

    friend bool operator==(const StackedBarPart &, const StackedBarPart &) = default;
};

/// A bar of proportional parts. If interactive, it responds to the pointer and, when focused, to the arrow keys, Home
/// and End: `current` is the part under the pointer or chosen by key, and the others are dimmed. Painted into one
/// image, because that is the only way to get smooth rounded corners with every renderer. Main thread only.
class StackedBar : public corvane::KeyboardItem { // qualified because qmllint resolves the name as written
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<corvane::StackedBarPart> parts READ parts WRITE setParts NOTIFY partsChanged)
    /// Bytes that belong to no part: left empty before the last part.
    Q_PROPERTY(double rest READ rest WRITE setRest NOTIFY restChanged)
    /// The id of the part under the pointer or chosen by the keyboard; empty for none.
    Q_PROPERTY(QString current READ current WRITE setCurrent NOTIFY currentChanged)
    /// That part; its id is empty for none.
    Q_PROPERTY(corvane::StackedBarPart currentPart READ currentPart NOTIFY currentChanged)
    /// The id of the part that shows its title, if that fits, and is never dimmed.
    Q_PROPERTY(QString labelledPart READ labelledPart WRITE setLabelledPart NOTIFY labelledPartChanged)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)
    Q_PROPERTY(qreal gap READ gap WRITE setGap NOTIFY gapChanged)
    Q_PROPERTY(bool interactive READ isInteractive WRITE setInteractive NOTIFY interactiveChanged)

public:
    explicit StackedBar(QQuickItem *parent = nullptr);

    [[nodiscard]] const QList<StackedBarPart> &parts() const { return m_parts; }
    void setParts(const QList<StackedBarPart> &parts);
    [[nodiscard]] double rest() const { return m_rest; }
    void setRest(double bytes);
    [[nodiscard]] const QString &current() const { return m_current; }
    /// An unknown id selects no part.
    void setCurrent(const QString &id);
    [[nodiscard]] StackedBarPart currentPart() const;
    [[nodiscard]] const QString &labelledPart() const { return m_labelledPart; }
    void setLabelledPart(const QString &id);
    [[nodiscard]] qreal radius() const { return m_radius; }
    void setRadius(qreal radius);
    [[nodiscard]] qreal gap() const { return m_gap; }
    void setGap(qreal gap);
    [[nodiscard]] bool isInteractive() const { return m_interactive; }
    void setInteractive(bool interactive);

    /// The positions of the parts, in their order.
    [[nodiscard]] const std::vector<BarPart> &layout() const { return m_layout; }
    /// Renders the bar's current state at this device pixel ratio.
    [[nodiscard]] QImage picture(qreal pixelRatio) const;

signals:
    void partsChanged();
    void restChanged();
    void currentChanged();
    void labelledPartChanged();
    void radiusChanged();
    void gapChanged();
    void interactiveChanged();
    /// A part was clicked, or Return was pressed on it.
    void chosen(const QString &id);

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *node, UpdatePaintNodeData *) override;
    void hoverEnterEvent(QHoverEvent *event) override { hoverMoveEvent(event); }
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void layOut();
    void redraw();
    [[nodiscard]] qsizetype indexOf(const QString &id) const;
    [[nodiscard]] QString partAt(QPointF point) const;
    void step(qsizetype by);

    QList<StackedBarPart> m_parts;
    std::vector<BarPart> m_layout; // one for each part
    double m_rest = 0;
    QString m_current;
    std::optional<QPointF> m_pointer; // its last position while it is over the bar
    QString m_labelledPart;
    qreal m_radius = 4;
    qreal m_gap = 2;
    bool m_interactive = false;
    bool m_isStale = true; // the displayed image is out of date
};

} // namespace corvane
