pragma Singleton

import QtQuick

/// Sizes, in points, that only the overview uses.
QtObject {
    readonly property int pageTop: 20
    readonly property int headTop: 12
    readonly property int headBottom: 8

    readonly property int diskIconSize: 20
    readonly property int diskTop: 14
    readonly property int diskFiguresGap: 28
    readonly property int diskBarHeight: 14
    readonly property int diskBarRadius: 5

    readonly property int choiceHeight: 66
    readonly property int choiceRadius: 8
    readonly property double choiceAccent: 0.55

    /// The share of the scan's own figure in its box, beside two of 1.
    readonly property double scannedShare: 2.2

    readonly property int typesBarHeight: 12
    readonly property int typesBarRadius: 4
    readonly property int typeRowHeight: 27
    readonly property int topRowHeight: 38
    readonly property int topIconSize: 18
    readonly property int winRowHeight: 56
    readonly property int winBandHeight: 46
    readonly property int winBadgeSize: 28
    readonly property int rowsBottom: 10

    /// The shares of the three cards side by side.
    readonly property double typesShare: 1 / 3
    readonly property double foldersShare: 0.36
    readonly property double winsShare: 0.92 / 3
}
