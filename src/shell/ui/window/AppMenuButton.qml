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
    onClicked: openMenu()

    function openMenu() {
        menu.byKeyboard = button.visualFocus;
        menu.popup(button, 0, button.height + Theme.space4);
    }
    function openMenuFromKeyboard() {
        button.forceActiveFocus(Qt.ShortcutFocusReason);
        openMenu();
    }

    Shortcut {
        sequence: "F10"
        enabled: button.visible && button.actions.enabled
        onActivated: button.openMenuFromKeyboard()
    }
    WindowMenu {
        id: menu

        objectName: "appMenu"
        actions: button.actions
    }
}
