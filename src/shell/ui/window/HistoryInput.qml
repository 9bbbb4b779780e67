import QtQuick
import Corvane.Window

/// The keys and mouse buttons that are made for going back and forward, which not every keyboard and mouse has. The
/// regular shortcuts of these commands are in the menu.
MouseArea {
    id: input

    required property WindowActions actions
    required property FolderHistory history

    acceptedButtons: Qt.BackButton | Qt.ForwardButton
    enabled: actions.enabled
    onPressed: event => history.go(event.button)

    Shortcut {
        sequences: ["Back", Qt.platform.os === "osx" ? "Alt+Left" : ""]
        enabled: input.actions.back.enabled
        onActivated: input.history.goBack()
    }
    Shortcut {
        sequences: ["Forward", Qt.platform.os === "osx" ? "Alt+Right" : ""]
        enabled: input.actions.forward.enabled
        onActivated: input.history.goForward()
    }
}
