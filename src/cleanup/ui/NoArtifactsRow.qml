import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Shown if the scan found no build folders.
BoxRow {
    id: row

    required property string title

    bodyHeight: CleanupMetrics.noneHeight
    presses: false

    PlainText {
        anchors.fill: parent
        anchors.leftMargin: CleanupMetrics.rowInset
        anchors.rightMargin: CleanupMetrics.rowInset
        text: row.title
        color: Theme.t2
        Accessible.ignored: true
    }
}
