import QtQuick
import Corvane.Shell
import Corvane.Duplicates

/// How far the search is. Has the keyboard while there is nothing else to work with.
FocusScope {
    id: view

    /// From 0 to 1.
    required property real value
    required property string text

    activeFocusOnTab: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: text

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.emptyStateRise
        width: DuplicatesMetrics.progressWidth

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "doc.on.doc"
            weight: "light"
            color: Theme.t3
            size: Theme.emptyStateIconSize
        }
        Item {
            width: parent.width
            height: DuplicatesMetrics.progressTop
        }
        SizeBar {
            width: parent.width
            height: DuplicatesMetrics.progressHeight
            fraction: view.value
            barColor: Theme.accent
        }
        Item {
            width: parent.width
            height: Theme.space10
        }
        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: view.text
            font: Theme.bodyFiguresFont
            color: Theme.t2
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
