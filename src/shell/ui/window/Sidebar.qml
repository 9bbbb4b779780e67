pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Window

/// The list of screens at the left of the window, with the program's name above it where the title bar is
/// separate, and the disk below. Arrow keys, Home and End move the choice.
FocusScope {
    id: sidebar

    required property SidebarModel screens
    /// Stands at the right of the head, where there is a head.
    property alias headControl: head.control

    implicitWidth: Theme.sidebarWidth

    function focusCurrent() {
        const row = rows.itemAt(sidebar.screens.currentRow);
        if (row)
            row.forceActiveFocus(Qt.TabFocusReason);
    }

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
    Column {
        id: list

        x: Theme.sidebarInset
        y: Theme.bandHeight
        width: parent.width - 2 * Theme.sidebarInset - Theme.hairlineWidth
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Screens")
        Keys.onUpPressed: sidebar.screens.step(-1)
        Keys.onDownPressed: sidebar.screens.step(1)
        Keys.onPressed: event => {
            if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
                return;
            sidebar.screens.step(event.key === Qt.Key_Home ? -rows.count : rows.count);
            event.accepted = true;
        }

        Repeater {
            id: rows

            model: sidebar.screens

            SidebarRow {
                width: list.width
                onChosen: row => sidebar.screens.choose(row)
            }
        }
    }
    DiskMiniGauge {
        anchors.bottom: parent.bottom
        width: parent.width - Theme.hairlineWidth
    }
    Connections {
        target: sidebar.screens

        function onCurrentChanged() {
            if (list.activeFocus)
                sidebar.focusCurrent();
        }
    }
}
