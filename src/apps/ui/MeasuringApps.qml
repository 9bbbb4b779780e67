import QtQuick
import Corvane.Shell

/// Shown while the first inventory is being taken.
Item {
    id: view

    required property string text

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.emptyStateRise
        width: Math.min(parent.width - 2 * Theme.pageMargin, Theme.emptyStateWidth)
        spacing: Theme.space14

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: view.text
            color: Theme.t2
            horizontalAlignment: Text.AlignHCenter
        }
        IndeterminateBar {
            objectName: "uninstaller.progress"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Theme.menuMinimumWidth
            accessibleName: view.text
        }
    }
}
