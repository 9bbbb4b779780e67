#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the cleanup screen uses.
class CleanupMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, headerHeight, 42)
    METRIC(int, headerTop, 6)
    METRIC(int, headerInset, 4)
    METRIC(int, listMargin, 4)
    METRIC(int, cardHeight, 56)
    METRIC(int, entryHeight, 28)
    METRIC(int, artifactHeight, 40)
    METRIC(int, promptHeight, 64)
    METRIC(int, noneHeight, 48)
    METRIC(int, foldedHeight, 40)

    /// The inset of a row's content from the edges of its box.
    METRIC(int, rowInset, 15)
    METRIC(int, figuresInset, 43)
    METRIC(int, entryInset, 43)
    METRIC(int, entryTextInset, 69)
    METRIC(int, cardFiguresWidth, 96)
    METRIC(int, artifactIconSize, 18)
    METRIC(int, commandWidth, 296)
    METRIC(int, copyWidth, 86)
    METRIC(int, caretSize, 12)
    METRIC(int, commandFiguresWidth, 84)
};

} // namespace corvane
