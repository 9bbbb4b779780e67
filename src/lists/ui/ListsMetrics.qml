pragma Singleton

import QtQuick

/// Sizes, in points, that only the lists of files use.
QtObject {
    readonly property int searchWidth: 220
    readonly property int sizeChoiceWidth: 108
    readonly property int typeChoiceWidth: 168
    readonly property int ageChoiceWidth: 96
    readonly property int labelGap: 6
    readonly property int filterGap: 16

    /// At the end of a column; of the figures at their right.
    readonly property int columnGap: 16
    readonly property int figureGap: 20
    readonly property int kindGap: 8
    readonly property int caretGap: 4
    /// What takes hold of a column's edge, and how far a key moves that.
    readonly property int gripWidth: 9
    readonly property int resizeStep: 8
}
