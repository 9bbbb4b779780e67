import QtQuick
import Corvane.Shell

/// The context menu of an application.
AppMenu {
    id: menu

    required property NodeActions target
    required property bool canUninstall
    required property string removeText

    signal uninstallWanted

    AppMenuItem {
        text: SystemTexts.reveal
        onTriggered: menu.target.reveal()
    }
    AppMenuItem {
        text: menu.target.copyText
        onTriggered: menu.target.copyPath()
    }
    AppMenuSeparator {}
    AppMenuItem {
        text: menu.removeText
        enabled: menu.canUninstall
        onTriggered: menu.uninstallWanted()
    }
}
