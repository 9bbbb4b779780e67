import QtQuick
import Corvane.Shell
import Corvane.Window

/// Opens the menu of every command, where there is no menu bar. F10 opens it too.
PushButton {
    id: button

    required property WindowActions actions

    objectName: "appMenuButton"
    quiet: true
    iconName: "list"
    leftPadding: Theme.space6
    rightPadding: Theme.space6
    Accessible.role: Accessible.ButtonMenu
    Accessible.name: qsTr("Menu")
    onClicked: openMenu(button.visualFocus)

    function openMenu(byKeyboard: bool) {
        menu.byKeyboard = byKeyboard;
        menu.popup(button, 0, button.height + Theme.space4);
    }

    Shortcut {
        sequence: "F10"
        enabled: button.visible && button.actions.enabled
        onActivated: button.openMenu(true)
    }
    WindowMenu {
        id: menu

        objectName: "appMenu"
        actions: button.actions
    }
}
