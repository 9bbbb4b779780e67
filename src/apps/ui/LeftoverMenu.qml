import QtQuick
import Corvane.Shell

/// The context menu of a leftover.
AppMenu {
    id: menu

    required property NodeActions target

    AppMenuItem {
        text: SystemTexts.reveal
        onTriggered: menu.target.reveal()
    }
    AppMenuItem {
        text: menu.target.copyText
        onTriggered: menu.target.copyPath()
    }
}
