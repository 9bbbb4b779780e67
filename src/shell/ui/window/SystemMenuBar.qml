pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQml
import Corvane.Window

/// The commands of the window in the system's own menu bar. The system moves "About" to the program's menu and
/// brings "Quit" itself.
MenuBar {
    id: bar

    required property WindowActions actions

    Menu {
        title: qsTr("File")

        MenuItem {
            action: bar.actions.scanHome
        }
        MenuItem {
            action: bar.actions.scanEntireDisk
        }
        MenuItem {
            action: bar.actions.chooseFolder
        }
        MenuSeparator {}
        MenuItem {
            action: bar.actions.stopScan
        }
    }
    Menu {
        title: qsTr("Selection")

        MenuItem {
            action: bar.actions.review
        }
        MenuItem {
            action: bar.actions.clear
        }
        MenuSeparator {}
        MenuItem {
            action: bar.actions.moveToTrash
        }
    }
    Menu {
        title: qsTr("Go")

        MenuItem {
            action: bar.actions.back
        }
        MenuItem {
            action: bar.actions.forward
        }
    }
    Menu {
        id: view

        title: qsTr("View")
    }
    Menu {
        title: qsTr("Help")

        MenuItem {
            action: bar.actions.privacyPolicy
        }
        MenuItem {
            action: bar.actions.website
        }
        MenuItem {
            action: bar.actions.about
        }
    }

    Instantiator {
        model: bar.actions.show.count

        delegate: MenuItem {
            required property int index

            action: bar.actions.show.objectAt(index) as Action
        }
        onObjectAdded: (index, object) => view.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => view.removeItem(object as MenuItem)
    }
}
