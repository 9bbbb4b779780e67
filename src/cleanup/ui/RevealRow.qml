import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// The last row of an expanded location: reveals the location.
BoxRow {
    id: row

    required property string title
    /// Whether it is the first row below its card.
    required property bool leads

    bodyHeight: CleanupMetrics.entryHeight + Theme.space4 + (leads ? Theme.space4 + Theme.hairlineWidth : 0)
    nested: true
    ruled: leads
    presses: false

    LinkButton {
        x: CleanupMetrics.entryTextInset
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.space4
        height: CleanupMetrics.entryHeight
        focusPolicy: Qt.NoFocus
        small: true
        text: row.title
        onClicked: row.activated()
    }
}
