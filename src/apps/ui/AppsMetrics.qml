pragma Singleton

import QtQuick

/// Sizes, in points, that only the uninstaller uses.
QtObject {
    readonly property int listWidth: 368
    readonly property int listWidthNarrow: 300
    readonly property int filterHeight: 45
    readonly property int rowHeight: 48
    readonly property int badgeGap: 7

    readonly property int detailTop: 18
    readonly property int detailIconSize: 64
    readonly property int orphansBadgeSize: 48
    readonly property int footHeight: 60
    readonly property int bannerIconSize: 18

    readonly property int headingHeight: 32
    readonly property int headingGap: 6
    readonly property int leftoverHeight: 33
    readonly property int rowInset: 12
    readonly property int rowGap: 9
    readonly property int rowEnd: 6

    /// The columns of a list of leftovers, without dates and with them.
    readonly property int locationWidth: 132
    readonly property int sizeWidth: 66
    /// The place of an item whose title is its path.
    readonly property int kindWidth: 84
    readonly property int datedLocationWidth: 120
    readonly property int dateWidth: 84
    readonly property int datedSizeWidth: 64
    /// A list that is narrower has no room for dates.
    readonly property int datedListWidth: 600

    readonly property int questionWidth: 440
    readonly property int copyWidth: 86
}
