import QtQuick
import Corvane.Shell

/// Copies a command to the clipboard and confirms that for a moment.
PushButton {
    id: button

    required property CommandClipboard clipboard
    required property string label
    required property string command
    /// 0 for the label's own width.
    property int fixedWidth: 0

    done: clipboard.copied === command
    text: done ? qsTr("Copied!") : label
    symbol: done ? "checkmark" : "doc.on.clipboard"
    Accessible.description: command
    onClicked: clipboard.copy(command)
    // Keep the width when the text changes, so that neighbouring items do not move.
    Component.onCompleted: width = fixedWidth > 0 ? fixedWidth : implicitWidth
}
