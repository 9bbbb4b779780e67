pragma Singleton

import QtQuick

/// Sizes, in points, that only the cleanup screen uses.
QtObject {
    readonly property int headerHeight: 42
    readonly property int headerTop: 6
    readonly property int headerInset: 4
    readonly property int listMargin: 4
    readonly property int cardHeight: 56
    readonly property int entryHeight: 28
    readonly property int artifactHeight: 40
    readonly property int promptHeight: 64
    readonly property int noneHeight: 48
    readonly property int foldedHeight: 40

    /// The content of a row, from the edges of its box.
    readonly property int rowInset: 15
    readonly property int figuresInset: 43
    readonly property int entryInset: 43
    readonly property int entryTextInset: 69
    readonly property int cardFiguresWidth: 96
    readonly property int artifactIconSize: 18
    readonly property int commandWidth: 296
    readonly property int copyWidth: 86
    readonly property int commandFiguresWidth: 84
}
