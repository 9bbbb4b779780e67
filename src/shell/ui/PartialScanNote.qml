import QtQuick
import Corvane.Shell

/// Says that the figures come from a scan that was stopped, and offers to scan again.
Banner {
    id: note

    /// Whether a scan can be started because none is running.
    required property bool canScan
    /// The object name of the button.
    property alias buttonName: button.objectName

    signal scanWanted

    iconName: "warning-circle"
    text: qsTr("The figures cover only what the scan reached before it was stopped.")
    buttons: PushButton {
        id: button

        text: qsTr("Scan Again")
        symbol: "arrow.clockwise"
        enabled: note.canScan
        onClicked: note.scanWanted()
    }
}
