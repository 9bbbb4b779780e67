pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import QtQml
import Corvane.Shell
import Corvane.Window

/// All commands of the window in one menu, on systems without a menu bar.
AppMenu {
    id: menu

    required property WindowActions actions

    /// Whether it was opened by keyboard, in which case the first command is highlighted.
    property bool byKeyboard: false

    /// The place after the separator.
    readonly property int screensAt: aboveScreens.ObjectModel.index + 1

    onOpened: currentIndex = byKeyboard ? 0 : -1

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
    AppMenuItem {
        objectName: "appMenu.back"
        action: menu.actions.back
    }
    AppMenuItem {
        objectName: "appMenu.forward"
        action: menu.actions.forward
    }
    AppMenuSeparator {
        id: aboveScreens
    }
    AppMenuSeparator {}
    AppMenuItem {
        objectName: "appMenu.settings"
        action: menu.actions.settings
    }
    AppMenuItem {
        objectName: "appMenu.checkForUpdates"
        action: menu.actions.checkForUpdates
    }
    AppMenuSeparator {}
    AppMenuItem {
        objectName: "appMenu.sendFeedback"
        action: menu.actions.sendFeedback
    }
    AppMenuItem {
        objectName: "appMenu.welcome"
        action: menu.actions.welcome
    }
    AppMenuItem {
        objectName: "appMenu.privacyPolicy"
        action: menu.actions.privacyPolicy
    }
    AppMenuItem {
        objectName: "appMenu.website"
        action: menu.actions.website
    }
    AppMenuItem {
        objectName: "appMenu.about"
        action: menu.actions.about
    }
    AppMenuItem {
        objectName: "appMenu.quit"
        action: menu.actions.quit
        keys: menu.actions.quitKeys
    }

    // Close the menu when a sheet opens by itself, since the menu would cover it.
    readonly property bool answered: actions.enabled

    onAnsweredChanged: if (!answered) menu.close()

    Instantiator {
        model: menu.actions.show.count

        delegate: AppMenuItem {
            required property int index

            objectName: "appMenu.show" + (index + 1)
            action: menu.actions.show.objectAt(index) as T.Action
        }
        onObjectAdded: (index, object) => menu.insertItem(menu.screensAt + index, object as AppMenuItem)
        onObjectRemoved: (index, object) => menu.removeItem(object as AppMenuItem)
    }
}
