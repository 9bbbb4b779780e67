import QtQuick
import Corvane.Shell
import Corvane.Window

/// Opens the menu of all commands, on systems without a menu bar. F10 opens it too.
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

    /// Created when first opened: it has some twenty rows.
    property WindowMenu menu: null

    function openMenu(byKeyboard: bool) {
        if (menu === null)
            menu = menuComponent.createObject(button) as WindowMenu;
        menu.byKeyboard = byKeyboard;
        menu.popup(button, 0, button.height + Theme.space4);
    }

    Shortcut {
        sequence: "F10"
        enabled: button.visible && button.actions.enabled
        onActivated: button.openMenu(true)
    }
    // Not a bound component: Qt 6.4 cannot create those here.
    Component {
        id: menuComponent

        WindowMenu {
            objectName: "appMenu"
            actions: button.actions // qmllint disable unqualified
        }
    }
}
