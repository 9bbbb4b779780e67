import QtQuick
import Corvane.Shell

/// Progress of a check or download: a bar, and the figures if they are known.
Column {
    id: progress

    required property string title
    /// From 0 to 1; -1 if the total is unknown.
    required property double fraction
    required property string figures

    topPadding: Theme.space8
    spacing: Theme.space8

    IndeterminateBar {
        width: parent.width
        visible: progress.fraction < 0
        accessibleName: progress.title
    }
    Item {
        objectName: "update.bar"
        width: parent.width
        height: bar.height
        visible: progress.fraction >= 0
        Accessible.role: Accessible.ProgressBar
        Accessible.name: progress.title
        Accessible.description: progress.figures

        SizeBar {
            id: bar

            width: parent.width
            fraction: progress.fraction
            barColor: Theme.accent
        }
    }
    PlainText {
        objectName: "update.figures"
        width: parent.width
        visible: text !== ""
        text: progress.figures
        font: Theme.secondaryFont
        color: Theme.t2
    }
}
