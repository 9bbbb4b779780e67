#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Where a label stands in a tile without nested ones, in points.
struct TileLabelMetrics {
    int left;
    int right;
    int top;
    int lineHeight;
    int smallestHeight;         ///< of a tile with a name
    int smallestHeightWithSize; ///< of a tile with a name and a size
};

/// Sizes, in points, and shares that only the explorer uses.
class MapMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, crumbHeight, 26)
    METRIC(int, crumbPadding, 6)
    METRIC(int, crumbSpacing, 4)
    METRIC(int, crumbCaretSize, 12)
    METRIC(int, widestCrumb, 240)     // for all but the last crumb
    METRIC(int, narrowestCurrent, 60) // guaranteed width of the current folder
    METRIC(int, rootIconSize, 15)
    METRIC(int, rootIconGap, 6)
    METRIC(int, listHeaderHeight, 40)
    METRIC(int, rowGap, 9)
    METRIC(int, rowCaretSize, 11)

    METRIC(int, smallestRounded, 8) // width and height of a tile with round corners
    METRIC(int, frameInset, 7)
    METRIC(int, frameSizeGap, 26) // both insets and the gap between name and size
    static constexpr TileLabelMetrics leafLabel{7, 7, 5, 16, 24, 42};
    static constexpr TileLabelMetrics nestedLabel{6, 5, 3, 14, 19, 34};
    METRIC(int, hatchSpacing, 6)
    METRIC(double, hatchOpacity, 0.24)
    METRIC(int, checkDisc, 16)
    METRIC(int, checkInset, 6)
    METRIC(int, checkSmallestTile, 40)
    METRIC(double, checkStroke, 1.7)
    METRIC(int, hoverRingWidth, 2)
    METRIC(double, hoverRingOutline, 1.5)
    METRIC(int, focusRingInside, 2)
    METRIC(int, focusRingOutside, 3)
    METRIC(int, pillRight, 14) // from the pointer
    METRIC(int, pillBelow, 18)
    METRIC(double, insideOpacity, 0.4) // of the map inside a tile, when it is as large as that tile
};

} // namespace corvane
