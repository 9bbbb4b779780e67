pragma ComponentBehavior: Bound

import QtQuick.Templates as T
import QtQml
import Qt.labs.platform
import Corvane.Window

/// The window's commands in the system's menu bar. The system moves commands with a role into the application menu:
/// "About", followed by the check for updates, "Settings" and "Quit".
MenuBar {
    id: bar

    required property WindowActions actions

    component Command: MenuItem {
        required property T.Action action

        text: action.text
        shortcut: action.shortcut
        enabled: action.enabled
        role: MenuItem.NoRole
        onTriggered: action.trigger()
    }

    Menu {
        title: qsTr("File")

        Command {
            action: bar.actions.scanHome
        }
        Command {
            action: bar.actions.scanEntireDisk
        }
        Command {
            action: bar.actions.chooseFolder
        }
        MenuSeparator {}
        Command {
            action: bar.actions.stopScan
        }
        Command {
            action: bar.actions.about
            role: MenuItem.AboutRole
        }
        Command {
            action: bar.actions.checkForUpdates
            role: MenuItem.ApplicationSpecificRole
        }
        Command {
            action: bar.actions.settings
            role: MenuItem.PreferencesRole
        }
        Command {
            action: bar.actions.quit
            shortcut: bar.actions.quitKeys
            role: MenuItem.QuitRole
        }
    }
    Menu {
        title: qsTr("Selection")

        Command {
            action: bar.actions.review
        }
        Command {
            action: bar.actions.clear
        }
        MenuSeparator {}
        Command {
            action: bar.actions.moveToTrash
        }
    }
    Menu {
        title: qsTr("Go")

        Command {
            action: bar.actions.back
        }
        Command {
            action: bar.actions.forward
        }
    }
    Menu {
        id: view

        title: qsTr("View")
    }
    Menu {
        title: qsTr("Help")

        Command {
            action: bar.actions.sendFeedback
        }
        Command {
            action: bar.actions.welcome
        }
        MenuSeparator {}
        Command {
            action: bar.actions.privacyPolicy
        }
        Command {
            action: bar.actions.website
        }
    }

    readonly property Instantiator screens: Instantiator {
        model: bar.actions.show.count

        delegate: Command {
            required property int index

            action: bar.actions.show.objectAt(index) as T.Action
        }
        onObjectAdded: (index, object) => view.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => view.removeItem(object as MenuItem)
    }
}
