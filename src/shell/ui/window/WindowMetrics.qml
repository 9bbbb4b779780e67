pragma Singleton

import QtQuick

/// Sizes, in points, that only the window's own parts use.
QtObject {
    readonly property int defaultWidth: 1280
    readonly property int defaultHeight: 800

    readonly property int headIconSize: 26
    readonly property int headLeft: 16
    readonly property int headGap: 9
    readonly property int sectionInset: 8
    readonly property int firstSectionAbove: 2
    readonly property int sectionAbove: 18
    readonly property int sectionBelow: 5
    readonly property int rowGap: 1
    readonly property int rowTextLeft: 33
    readonly property int gaugeInset: 16
    readonly property int gaugeTop: 12
    readonly property int gaugeBottom: 15
    readonly property int gaugeBarHeight: 5

    readonly property int progressWidth: 760
    readonly property int progressFigureWidth: 128

    readonly property int selectionShadow: 16
    readonly property double selectionShadowOpacity: 0.05

    readonly property int reviewHeaderTop: 18
    readonly property int reviewHeaderBottom: 12
    readonly property int reviewListHeight: 440
    readonly property int reviewRowHeight: 46
    readonly property int reviewIconSize: 18

    readonly property int toastHeight: 36
    readonly property int toastWidth: 720
    readonly property int toastAboveBottom: 20
    readonly property int toastAboveBar: 16
    readonly property int toastRise: 8

    readonly property int aboutWidth: 300
    readonly property int aboutIconSize: 64

    readonly property int dropInset: 8
}
