#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the uninstaller uses.
class AppsMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, listWidth, 368)
    METRIC(int, listWidthNarrow, 300)
    METRIC(int, filterHeight, 45)
    METRIC(int, rowHeight, 48)
    METRIC(int, badgeGap, 7)

    METRIC(int, detailTop, 18)
    METRIC(int, detailIconSize, 64)
    METRIC(int, orphansBadgeSize, 48)
    METRIC(int, footHeight, 60)
    METRIC(int, bannerIconSize, 18)

    METRIC(int, headingHeight, 32)
    METRIC(int, headingGap, 6)
    METRIC(int, leftoverHeight, 33)
    METRIC(int, rowInset, 12)
    METRIC(int, rowGap, 9)
    METRIC(int, rowEnd, 6)

    /// The column widths of a list of leftovers, without and with dates.
    METRIC(int, locationWidth, 132)
    METRIC(int, sizeWidth, 66)
    /// The kind column if the title is a path.
    METRIC(int, kindWidth, 84)
    METRIC(int, datedLocationWidth, 120)
    METRIC(int, dateWidth, 84)
    METRIC(int, datedSizeWidth, 64)
    /// The minimum width of a list with dates.
    METRIC(int, datedListWidth, 600)

    METRIC(int, questionWidth, 440)
    METRIC(int, copyWidth, 86)
};

} // namespace corvane
