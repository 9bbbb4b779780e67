#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the main window uses.
class WindowMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, defaultWidth, 1280)
    METRIC(int, defaultHeight, 800)

    METRIC(int, headIconSize, 26)
    METRIC(int, headLeft, 16)
    METRIC(int, headGap, 9)
    METRIC(int, sectionInset, 8)
    METRIC(int, firstSectionAbove, 2)
    METRIC(int, sectionAbove, 18)
    METRIC(int, sectionBelow, 5)
    METRIC(int, rowGap, 1)
    METRIC(int, rowTextLeft, 33)
    METRIC(int, gaugeInset, 16)
    METRIC(int, gaugeTop, 12)
    METRIC(int, gaugeBottom, 15)
    METRIC(int, gaugeBarHeight, 5)

    METRIC(int, progressWidth, 760)
    METRIC(int, progressFigureWidth, 128)

    METRIC(int, selectionShadow, 16)
    METRIC(double, selectionShadowOpacity, 0.05)

    METRIC(int, reviewHeaderTop, 18)
    METRIC(int, reviewHeaderBottom, 12)
    METRIC(int, reviewListHeight, 440)
    METRIC(int, reviewRowHeight, 46)
    METRIC(int, reviewIconSize, 18)

    METRIC(int, toastHeight, 36)
    METRIC(int, toastWidth, 720)
    METRIC(int, toastAboveBottom, 20)
    METRIC(int, toastAboveBar, 16)
    METRIC(int, toastRise, 8)

    METRIC(int, aboutWidth, 300)
    METRIC(int, aboutIconSize, 64)

    METRIC(int, dropInset, 8)
};

} // namespace corvane
