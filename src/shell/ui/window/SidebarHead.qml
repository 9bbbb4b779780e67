import QtQuick
import Corvane.Shell
import Corvane.Window

/// The program's icon and name, in the band above the sidebar.
Item {
    id: head

    /// The control on the right.
    property alias control: corner.data

    AppIcon {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: WindowMetrics.headLeft
        anchors.verticalCenter: parent.verticalCenter
        size: WindowMetrics.headIconSize
    }
    PlainText {
        anchors.left: icon.right
        anchors.leftMargin: WindowMetrics.headGap
        anchors.verticalCenter: parent.verticalCenter
        text: Qt.application.name
        font: Theme.title2Font
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Row {
        id: corner

        anchors.right: parent.right
        anchors.rightMargin: Theme.sidebarInset
        anchors.verticalCenter: parent.verticalCenter
    }
}
