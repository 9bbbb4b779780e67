pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import QtQml
import Corvane.Shell
import Corvane.Window

/// The window's commands with their shortcuts, for the menus and for use without them.
QtObject {
    id: actions

    required property SidebarModel screens
    required property ScanPresenter scan
    required property SelectionPresenter selection
    required property HelpPresenter help
    required property FolderHistory history
    /// False while a modal sheet is open.
    required property bool enabled

    signal reviewWanted
    signal aboutWanted
    signal settingsWanted

    readonly property T.Action scanHome: T.Action {
        text: qsTr("Scan Home Folder")
        shortcut: "Ctrl+R"
        enabled: actions.enabled
        onTriggered: actions.scan.scanHome()
    }
    readonly property T.Action scanEntireDisk: T.Action {
        text: qsTr("Scan Entire Disk")
        shortcut: "Ctrl+Shift+R"
        enabled: actions.enabled
        onTriggered: actions.scan.scanEntireDisk()
    }
    readonly property T.Action chooseFolder: T.Action {
        text: qsTr("Choose Folder to Scan…")
        shortcut: "Ctrl+O"
        enabled: actions.enabled
        onTriggered: actions.scan.chooseFolder()
    }
    readonly property T.Action stopScan: T.Action {
        text: qsTr("Stop Scan")
        shortcut: "Ctrl+."
        enabled: actions.enabled && actions.scan.scanning
        onTriggered: actions.scan.stop()
    }
    readonly property T.Action review: T.Action {
        text: qsTr("Review Selection…")
        shortcut: "Ctrl+Shift+S"
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.reviewWanted()
    }
    readonly property T.Action clear: T.Action {
        text: qsTr("Clear Selection")
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.selection.clear()
    }
    readonly property T.Action moveToTrash: T.Action {
        text: qsTr("Move to Trash")
        shortcut: "Ctrl+Backspace"
        enabled: actions.enabled && actions.selection.canRemove
        onTriggered: actions.selection.moveToTrash()
    }
    readonly property T.Action back: T.Action {
        text: qsTr("Back")
        shortcut: Qt.platform.os === "osx" ? "Ctrl+[" : "Alt+Left"
        enabled: actions.enabled && actions.history.canGoBack
        onTriggered: actions.history.goBackSoon()
    }
    readonly property T.Action forward: T.Action {
        text: qsTr("Forward")
        shortcut: Qt.platform.os === "osx" ? "Ctrl+]" : "Alt+Right"
        enabled: actions.enabled && actions.history.canGoForward
        onTriggered: actions.history.goForwardSoon()
    }
    readonly property T.Action settings: T.Action {
        text: qsTr("Settings…")
        shortcut: "Ctrl+,"
        enabled: actions.enabled
        onTriggered: actions.settingsWanted()
    }
    readonly property T.Action checkForUpdates: T.Action {
        text: qsTr("Check for Updates…")
        enabled: actions.enabled && Services.updater.canCheckForUpdates
        onTriggered: Services.updater.checkForUpdates()
    }
    readonly property T.Action sendFeedback: T.Action {
        text: qsTr("Send Feedback…")
        enabled: actions.enabled
        onTriggered: Store.showFeedback = true
    }
    readonly property T.Action welcome: T.Action {
        text: qsTr("Welcome & Permissions…")
        enabled: actions.enabled
        onTriggered: Services.defaults.didOnboard = false
    }
    readonly property T.Action privacyPolicy: T.Action {
        text: qsTr("Privacy Policy")
        enabled: actions.enabled
        onTriggered: actions.help.openPrivacyPolicy()
    }
    readonly property T.Action website: T.Action {
        text: qsTr("%1 Website").arg(Qt.application.name)
        enabled: actions.enabled
        onTriggered: actions.help.openWebsite()
    }
    readonly property T.Action about: T.Action {
        text: qsTr("About %1").arg(Qt.application.name)
        enabled: actions.enabled
        onTriggered: actions.aboutWanted()
    }
    readonly property T.Action quit: T.Action {
        text: qsTr("Quit")
        onTriggered: Qt.quit()
    }
    /// For the `quit` command, whose keys work in every window.
    readonly property string quitKeys: "Ctrl+Q"

    /// One for each screen, in the order of the sidebar.
    readonly property Instantiator show: Instantiator {
        model: actions.screens

        delegate: T.Action {
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
