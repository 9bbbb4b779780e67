#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, and shares that only the lists of files use.
class ListsMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, searchWidth, 220)
    METRIC(int, sizeChoiceWidth, 108)
    METRIC(int, typeChoiceWidth, 168)
    METRIC(int, ageChoiceWidth, 96)
    METRIC(int, labelGap, 6)
    METRIC(int, filterGap, 16)

    /// The gap at the end of a column; for right-aligned figures, after them.
    METRIC(int, columnGap, 16)
    METRIC(int, figureGap, 20)
    METRIC(int, kindGap, 8)
    METRIC(int, caretGap, 4)
    /// The width of the grip at a column's edge, and the distance that a key moves the edge.
    METRIC(int, gripWidth, 9)
    METRIC(int, resizeStep, 8)

    METRIC(int, sizeWidth, 92)
    METRIC(int, modifiedWidth, 108)
    METRIC(int, kindWidth, 160)
    METRIC(int, narrowKindWidth, 120)
    METRIC(double, nameShare, 0.6) // of the width that names and locations share, without the gap after a name
    METRIC(int, leastNameWidth, 120)
    METRIC(int, leastLocationWidth, 80)
    METRIC(int, leastColumnWidth, 64) // of the other columns
};

} // namespace corvane
