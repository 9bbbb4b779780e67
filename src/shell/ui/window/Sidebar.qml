import QtQuick
import Corvane.Shell
import Corvane.Window

/// The list of screens on the left of the window, with the program's name above it if the title bar is separate, and
/// the disk gauge below.
Item {
    id: sidebar

    required property SidebarModel screens
    /// The control on the right of the header, if there is a header.
    property alias headControl: head.control

    implicitWidth: Theme.sidebarWidth

    Rectangle {
        anchors.fill: parent
        color: Theme.sidebar
    }
    Rectangle {
        anchors.right: parent.right
        width: Theme.hairlineWidth
        height: parent.height
        color: Theme.hairline
    }
    SidebarHead {
        id: head

        width: parent.width - Theme.hairlineWidth
        height: Theme.bandHeight
        visible: Qt.platform.os !== "osx"
    }
    SidebarList {
        x: Theme.sidebarInset
        y: Theme.bandHeight
        width: parent.width - 2 * Theme.sidebarInset - Theme.hairlineWidth
        screens: sidebar.screens
    }
    DiskMiniGauge {
        anchors.bottom: parent.bottom
        width: parent.width - Theme.hairlineWidth
    }
}
