#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the overview uses.
class OverviewMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, pageTop, 20)
    METRIC(int, headTop, 12)
    METRIC(int, headBottom, 8)

    METRIC(int, diskIconSize, 20)
    METRIC(int, diskTop, 14)
    METRIC(int, diskFiguresGap, 28)
    METRIC(int, diskBarHeight, 14)
    METRIC(int, diskBarRadius, 5)

    METRIC(int, choiceHeight, 66)
    METRIC(int, choiceRadius, 8)
    METRIC(double, choiceAccent, 0.55)

    /// The relative width of the scanned size in its box, next to two figures of 1.
    METRIC(double, scannedShare, 2.2)

    METRIC(int, typesBarHeight, 12)
    METRIC(int, typesBarRadius, 4)
    METRIC(int, typeRowHeight, 27)
    METRIC(int, topRowHeight, 38)
    METRIC(int, topIconSize, 18)
    METRIC(int, winRowHeight, 56)
    METRIC(int, winBandHeight, 46)
    METRIC(int, winBadgeSize, 28)
    METRIC(int, rowsBottom, 10)

    /// The relative widths of the first two of three cards in a row; the third has the rest.
    METRIC(double, typesShare, 1.0 / 3)
    METRIC(double, foldersShare, 0.36)
};

} // namespace corvane
