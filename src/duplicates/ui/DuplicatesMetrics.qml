pragma Singleton

import QtQuick

/// Sizes, in points, that only the duplicates screen uses.
QtObject {
    readonly property int listMargin: 6
    readonly property int headerHeight: 42
    readonly property int headerTop: 6
    readonly property int headerInset: 2
    readonly property int headerGap: 9
    /// What a group's caret takes of the page's margin.
    readonly property int caretRoom: 18
    readonly property int fileHeight: 44
    /// The content of a row, from the edges of its box.
    readonly property int fileInset: 15
    readonly property int revealInset: 12

    readonly property int progressWidth: 320
    readonly property int progressHeight: 6
    readonly property int progressTop: 18
}
