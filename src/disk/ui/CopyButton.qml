import QtQuick
import Corvane.Disk
import Corvane.Shell

/// Puts a command on the clipboard and says so for a while.
PushButton {
    id: button

    required property BreakdownPresenter presenter
    required property string label
    required property string command

    done: presenter.copied === command
    text: done ? qsTr("Copied!") : label
    symbol: done ? "checkmark" : "doc.on.clipboard"
    Accessible.description: command
    onClicked: presenter.copy(command)
    // The shorter text leaves what stands beside the button in its place.
    Component.onCompleted: width = implicitWidth
}
