pragma Singleton

import QtQuick

/// Sizes, in points, that only the sheets and the window of the services use.
QtObject {
    readonly property int welcomeWidth: 600
    readonly property int welcomeTop: 26
    readonly property int welcomeIconSize: 72
    readonly property int featuresInset: 40
    readonly property int featureBadgeSize: 36
    readonly property int featureIconSize: 20
    readonly property int cardIconSize: 18
    readonly property int stepNumberSize: 18
    readonly property int stepSpace: 3
    readonly property int dragSize: 92
    readonly property int dragIconSize: 56

    readonly property int feedbackWidth: 480
    readonly property int feedbackIconSize: 24
    readonly property int feedbackLabelWidth: 64
    readonly property int feedbackMessageHeight: 112
    readonly property int feedbackErrorIconSize: 15
    readonly property int feedbackErrorLines: 4
    readonly property int feedbackBottom: 18

    readonly property int settingsWidth: 580
    readonly property int settingsTitleHeight: 40
    readonly property int settingsTitleBottom: 7
    readonly property int settingsRowHeight: 44
    readonly property int settingsChoiceWidth: 210
}
