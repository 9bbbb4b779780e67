import QtQuick
import Corvane.Shell
import Corvane.Duplicates

/// The progress of the search. Takes the focus from the button that started it, which is disabled meanwhile.
KeyboardItem {
    id: view

    /// From 0 to 1.
    required property real value
    required property string text

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
            id: bar

            width: parent.width
            height: DuplicatesMetrics.progressHeight
            fraction: view.value
            barColor: Theme.accent

            FocusRing {
                around: bar.radius
                visible: view.visualFocus
            }
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
