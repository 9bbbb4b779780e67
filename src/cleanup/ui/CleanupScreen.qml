import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Caches and other data that can be recreated, their total, and the build folders of the user's projects.
Rectangle {
    id: screen

    /// The window's own commands, shown on the right of the header.
    property Component toolbar

    color: Theme.window

    CleanupPresenter {
        id: presenter
    }
    ListHeader {
        id: header

        width: parent.width
        symbol: "sparkles"
        title: qsTr("Cleanup")
        subtitle: presenter.subtitle
        busy: presenter.measuring
        trailing: [
            PushButton {
                objectName: "cleanup.refresh"
                quiet: true
                text: qsTr("Refresh")
                symbol: "arrow.clockwise"
                enabled: !presenter.measuring
                onClicked: presenter.refresh()
            },
            PushButton {
                objectName: "cleanup.selectSafe"
                text: qsTr("Select All Safe")
                enabled: presenter.canSelectSafe
                onClicked: presenter.selectAllSafe()
            }
        ]
        toolbar: Loader {
            sourceComponent: screen.toolbar
        }
    }
    CleanupList {
        objectName: "cleanupList"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        title: header.title
    }
}
