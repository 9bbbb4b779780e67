import QtQuick
import Corvane.Shell
import Corvane.Lists

/// One cell of a row.
PlainText {
    property int gap: ListsMetrics.columnGap

    height: parent ? parent.height : 0
    rightPadding: gap
    color: Theme.t2
    Accessible.ignored: true
}
