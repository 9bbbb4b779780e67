import QtQuick
import Corvane.Shell
import Corvane.Lists

/// What a row says in one column.
PlainText {
    property int gap: ListsMetrics.columnGap

    height: parent ? parent.height : 0
    rightPadding: gap
    color: Theme.t2
    Accessible.ignored: true
}
