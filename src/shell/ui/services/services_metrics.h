#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include "shell/ui/metric.h"

namespace corvane {

/// Sizes, in points, that only the sheets and the window of the services use.
class ServicesMetrics : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    METRIC(int, welcomeWidth, 600)
    METRIC(int, welcomeTop, 26)
    METRIC(int, welcomeIconSize, 72)
    METRIC(int, featuresInset, 40)
    METRIC(int, featureBadgeSize, 36)
    METRIC(int, featureIconSize, 20)
    METRIC(int, cardIconSize, 18)
    METRIC(int, stepNumberSize, 18)
    METRIC(int, stepSpace, 3)
    METRIC(int, dragSize, 92)
    METRIC(int, dragIconSize, 56)
    METRIC(int, dashLength, 3) // of a dash and of a gap

    METRIC(int, feedbackWidth, 480)
    METRIC(int, feedbackIconSize, 24)
    METRIC(int, feedbackLabelWidth, 64)
    METRIC(int, feedbackMessageHeight, 112)
    METRIC(int, feedbackErrorIconSize, 15)
    METRIC(int, feedbackErrorLines, 4)
    METRIC(int, feedbackBottom, 18)

    METRIC(int, settingsWidth, 580)
    METRIC(int, settingsTitleHeight, 40)
    METRIC(int, settingsTitleBottom, 7)
    METRIC(int, settingsRowHeight, 44)
    METRIC(int, settingsChoiceWidth, 210)
};

} // namespace corvane
