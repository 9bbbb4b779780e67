#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the explorer uses.
class MapMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, crumbHeight, 26)
    METRIC(int, crumbPadding, 6)
    METRIC(int, crumbSpacing, 4)
    METRIC(int, crumbCaretSize, 12)
    METRIC(int, rootIconSize, 15)
    METRIC(int, rootIconGap, 6)
    METRIC(int, listHeaderHeight, 40)
    METRIC(int, rowGap, 9)
    METRIC(int, rowCaretSize, 11)
};

} // namespace corvane
