import QtQuick
import Corvane.Shell

/// The context menu of a tile or a row.
AppMenu {
    id: menu

    required property NodeActions target

    AppMenuItem {
        text: menu.target.openText
        enabled: menu.target.canOpen
        onTriggered: menu.target.open()
    }
    AppMenuItem {
        text: SystemTexts.reveal
        enabled: menu.target.canReveal
        onTriggered: menu.target.reveal()
    }
    AppMenuItem {
        text: menu.target.copyText
        onTriggered: menu.target.copyPath()
    }
    AppMenuSeparator {}
    AppMenuItem {
        text: menu.target.selectText
        enabled: menu.target.canSelect
        onTriggered: menu.target.toggleSelection()
    }
}
