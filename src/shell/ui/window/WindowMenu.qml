import QtQuick
import QtQuick.Templates as T
import QtQml
import Corvane.Shell
import Corvane.Window

/// Every command of the window in one menu, where there is no menu bar.
AppMenu {
    id: menu

    required property WindowActions actions

    readonly property int screensAt: 9

    AppMenuItem {
        objectName: "appMenu.scanHome"
        action: menu.actions.scanHome
    }
    AppMenuItem {
        objectName: "appMenu.scanEntireDisk"
        action: menu.actions.scanEntireDisk
    }
    AppMenuItem {
        objectName: "appMenu.chooseFolder"
        action: menu.actions.chooseFolder
    }
    AppMenuItem {
        objectName: "appMenu.stopScan"
        action: menu.actions.stopScan
    }
    AppMenuSeparator {}
    AppMenuItem {
        objectName: "appMenu.review"
        action: menu.actions.review
    }
    AppMenuItem {
        objectName: "appMenu.clear"
        action: menu.actions.clear
    }
    AppMenuItem {
        objectName: "appMenu.moveToTrash"
        action: menu.actions.moveToTrash
    }
    AppMenuSeparator {}
    AppMenuSeparator {}
    AppMenuItem {
        objectName: "appMenu.about"
        action: menu.actions.about
    }
    AppMenuItem {
        objectName: "appMenu.quit"
        action: menu.actions.quit
    }

    Connections {
        target: menu.actions.show

        function onObjectAdded(index, action) {
            menu.insertAction(menu.screensAt + index, action);
        }
        function onObjectRemoved(index, action) {
            menu.removeAction(action);
        }
    }
    Component.onCompleted: {
        for (let index = 0; index < actions.show.count; ++index)
            menu.insertAction(screensAt + index, actions.show.objectAt(index) as T.Action);
    }
}
