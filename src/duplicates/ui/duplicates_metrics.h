#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the duplicates screen uses.
class DuplicatesMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, listMargin, 6)
    METRIC(int, headerHeight, 42)
    METRIC(int, headerTop, 6)
    METRIC(int, headerInset, 2)
    METRIC(int, headerGap, 9)
    /// The part of the page's margin that a group's caret takes.
    METRIC(int, caretRoom, 18)
    METRIC(int, fileHeight, 44)
    /// The inset of a row's content from the edges of its box.
    METRIC(int, fileInset, 15)
    METRIC(int, revealInset, 12)

    METRIC(int, progressWidth, 320)
    METRIC(int, progressHeight, 6)
    METRIC(int, progressTop, 18)
};

} // namespace corvane
