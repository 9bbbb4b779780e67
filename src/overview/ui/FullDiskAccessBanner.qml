import QtQuick
import Corvane.Shell

/// Says that the program lacks full disk access, what that means and how to grant it.
Banner {
    id: banner

    /// Whether the access is granted in the system's settings.
    required property bool hasSettings

    signal guideWanted
    signal settingsWanted

    iconSymbol: "lock.shield"
    buttons: [
        PushButton {
            objectName: "overview.accessGuide"
            text: qsTr("Show Me How")
            onClicked: banner.guideWanted()
        },
        PushButton {
            objectName: "overview.accessSettings"
            text: qsTr("Open Settings")
            visible: banner.hasSettings
            onClicked: banner.settingsWanted()
        }
    ]
}
