import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Closes an expanded location: the way to it.
BoxRow {
    id: row

    required property string title
    /// The first beneath its card.
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
