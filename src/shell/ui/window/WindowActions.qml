pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQml
import Corvane.Shell
import Corvane.Window

/// Every command of the window with its keys, for the menu and for the keyboard alone.
QtObject {
    id: actions

    required property SidebarModel screens
    required property ScanPresenter scan
    required property SelectionPresenter selection
    required property HelpPresenter help
    required property FolderHistory history
    /// Nothing is answered while a sheet wants an answer.
    required property bool enabled

    signal reviewWanted
    signal aboutWanted
    signal settingsWanted

    readonly property Action scanHome: Action {
        text: qsTr("Scan Home Folder")
        shortcut: "Ctrl+R"
        enabled: actions.enabled
        onTriggered: actions.scan.scanHome()
    }
    readonly property Action scanEntireDisk: Action {
        text: qsTr("Scan Entire Disk")
        shortcut: "Ctrl+Shift+R"
        enabled: actions.enabled
        onTriggered: actions.scan.scanEntireDisk()
    }
    readonly property Action chooseFolder: Action {
        text: qsTr("Choose Folder to Scan…")
        shortcut: "Ctrl+O"
        enabled: actions.enabled
        onTriggered: actions.scan.chooseFolder()
    }
    readonly property Action stopScan: Action {
        text: qsTr("Stop Scan")
        shortcut: "Ctrl+."
        enabled: actions.enabled && actions.scan.scanning
        onTriggered: actions.scan.stop()
    }
    readonly property Action review: Action {
        text: qsTr("Review Selection…")
        shortcut: "Ctrl+Shift+S"
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.reviewWanted()
    }
    readonly property Action clear: Action {
        text: qsTr("Clear Selection")
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.selection.clear()
    }
    readonly property Action moveToTrash: Action {
        text: qsTr("Move to Trash")
        shortcut: "Ctrl+Backspace"
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.selection.moveToTrash()
    }
    readonly property Action back: Action {
        text: qsTr("Back")
        shortcut: Qt.platform.os === "osx" ? "Ctrl+[" : "Alt+Left"
        enabled: actions.enabled && actions.history.canGoBack
        onTriggered: actions.history.goBackSoon()
    }
    readonly property Action forward: Action {
        text: qsTr("Forward")
        shortcut: Qt.platform.os === "osx" ? "Ctrl+]" : "Alt+Right"
        enabled: actions.enabled && actions.history.canGoForward
        onTriggered: actions.history.goForwardSoon()
    }
    readonly property Action settings: Action {
        text: qsTr("Settings…")
        shortcut: "Ctrl+,"
        enabled: actions.enabled
        onTriggered: actions.settingsWanted()
    }
    readonly property Action checkForUpdates: Action {
        text: qsTr("Check for Updates…")
        enabled: actions.enabled && Services.updater.canCheckForUpdates
        onTriggered: Services.updater.checkForUpdates()
    }
    readonly property Action sendFeedback: Action {
        text: qsTr("Send Feedback…")
        enabled: actions.enabled
        onTriggered: Store.showFeedback = true
    }
    readonly property Action welcome: Action {
        text: qsTr("Welcome & Permissions…")
        enabled: actions.enabled
        onTriggered: Services.defaults.didOnboard = false
    }
    readonly property Action privacyPolicy: Action {
        text: qsTr("Privacy Policy")
        enabled: actions.enabled
        onTriggered: actions.help.openPrivacyPolicy()
    }
    readonly property Action website: Action {
        text: qsTr("%1 Website").arg(Qt.application.name)
        enabled: actions.enabled
        onTriggered: actions.help.openWebsite()
    }
    readonly property Action about: Action {
        text: qsTr("About %1").arg(Qt.application.name)
        enabled: actions.enabled
        onTriggered: actions.aboutWanted()
    }
    readonly property Action quit: Action {
        text: qsTr("Quit")
        onTriggered: Qt.quit()
    }
    /// Of `quit`, which answers to them in every window.
    readonly property string quitKeys: "Ctrl+Q"

    /// One for each screen, in the order of the sidebar.
    readonly property Instantiator show: Instantiator {
        model: actions.screens

        delegate: Action {
            id: screen

            required property int index
            required property string title
            required property string keys

            text: title
            shortcut: keys
            enabled: actions.enabled
            onTriggered: actions.screens.choose(screen.index)
        }
    }
}
