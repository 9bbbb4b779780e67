import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Says how many entries of an expanded location are not listed.
BoxRow {
    id: row

    required property string title

    bodyHeight: CleanupMetrics.entryHeight
    nested: true
    ruled: false
    presses: false

    PlainText {
        x: CleanupMetrics.entryTextInset
        height: parent.height
        text: row.title
        font: Theme.secondaryFont
        color: Theme.t3
        Accessible.ignored: true
    }
}
