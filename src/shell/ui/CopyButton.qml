import QtQuick
import Corvane.Shell

/// Puts a command on the clipboard and says so for a while.
PushButton {
    id: button

    required property CommandClipboard clipboard
    required property string label
    required property string command
    /// 0 for that of the label.
    property int fixedWidth: 0

    done: clipboard.copied === command
    text: done ? qsTr("Copied!") : label
    symbol: done ? "checkmark" : "doc.on.clipboard"
    Accessible.description: command
    onClicked: clipboard.copy(command)
    // The other text leaves what stands beside the button in its place.
    Component.onCompleted: width = fixedWidth > 0 ? fixedWidth : implicitWidth
}
