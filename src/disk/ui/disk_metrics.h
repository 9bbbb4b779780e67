#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the breakdown uses.
class DiskMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, pageTop, 18)
    METRIC(int, pageBottom, 24)
    METRIC(int, heroFigureLine, 19)
    METRIC(int, heroBarHeight, 30)
    METRIC(int, heroBarRadius, 7)
    METRIC(int, legendGap, 19) // between two entries
    METRIC(int, swatchGap, 7)
    METRIC(int, rowPadding, 11) // above and below
    METRIC(int, rowGap, 13)
    METRIC(int, detailTop, 1)
    METRIC(int, detailWidth, 640) // maximum
    METRIC(int, childrenTop, 5)
    METRIC(int, figureWidth, 86)
    METRIC(int, snapshotTextWidth, 680) // maximum
    METRIC(int, snapshotNameWidth, 300) // if there is a button beside it
    METRIC(int, snapshotLine, 20)
    METRIC(int, summaryHeight, 44)
    METRIC(int, summaryBarWidth, 150)
    METRIC(int, summaryBarWidthBesideRemark, 100)
    METRIC(int, summaryBarHeight, 8)
};

} // namespace corvane
