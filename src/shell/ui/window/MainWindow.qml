import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Services
import Corvane.Updates
import Corvane.Window

/// The program's one window: the screens at the left, the chosen one at the right, and over it what is selected
/// for removal and what the store has to say. Made hidden; whoever gives it its place shows it. What nobody has asked
/// for yet is not made, and where a module is needed by nothing else, the file of its own is not read either.
T.ApplicationWindow {
    id: window

    required property SidebarModel screens

    /// A sheet of the window's own or of its screen is open.
    readonly property bool asksItself: review.open || about.open || confirmation.open || screenView.asking
    readonly property bool asking: asksItself || services.asking || updates.visible
    /// How much of a screen lies beneath the selection bar.
    readonly property real coveredHeight: selectionBar.takenHeight

    property QtObject folderDialog: null

    function make(file: string, properties: var): QtObject {
        return Qt.createComponent(file).createObject(window, properties);
    }

    title: Qt.application.name
    width: WindowMetrics.defaultWidth
    height: WindowMetrics.defaultHeight
    minimumWidth: Theme.minimumWidth
    minimumHeight: Theme.minimumHeight
    color: Theme.window

    // For Qt's own folder dialog; the program's parts have their colours from the theme.
    palette {
        window: Theme.raised
        windowText: Theme.t1
        base: Theme.surface
        text: Theme.t1
        placeholderText: Theme.t3
        button: Theme.control
        buttonText: Theme.t1
        light: Theme.raised
        midlight: Theme.hairline
        mid: Theme.controlBorder
        dark: Theme.controlBorder
        shadow: "black"
        highlight: Theme.accentFill
        highlightedText: Theme.t1
    }

    ScanPresenter {
        id: scan

        onFolderWanted: chooser.ask()
    }
    SelectionPresenter {
        id: selectionPresenter

        onQuestionWanted: confirmation.show()
    }
    HelpPresenter {
        id: help
    }
    FolderHistory {
        id: history
    }
    WindowActions {
        id: actions

        screens: window.screens
        scan: scan
        selection: selectionPresenter
        help: help
        history: history
        enabled: !window.asking
        onReviewWanted: review.show()
        onAboutWanted: about.show()
        onSettingsWanted: services.openSettings()
    }

    Sidebar {
        id: sidebar

        height: parent.height
        screens: window.screens
        headControl: AppMenuButton {
            actions: actions
        }
    }
    Item {
        id: detail

        anchors.left: sidebar.right
        anchors.right: parent.right
        height: parent.height
        clip: true

        ScreenLoader {
            id: screenView

            anchors.fill: parent
            screens: window.screens
            coveredHeight: window.coveredHeight
        }
        SelectionBar {
            id: selectionBar

            anchors.bottom: parent.bottom
            width: parent.width
            selection: selectionPresenter
            onReviewWanted: review.show()
        }
        ToastView {
            id: toast

            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: selectionBar.shown ? selectionBar.height + WindowMetrics.toastAboveBar
                : WindowMetrics.toastAboveBottom
            width: Math.min(implicitWidth, detail.width - 2 * Theme.pageMargin)
        }
    }

    DropArea {
        id: drop

        anchors.fill: parent
        enabled: !window.asking
        // What is dragged out of the window itself is not meant for it.
        onEntered: drag => drag.accepted = drag.source === null && scan.accepts(drag.urls)
        onDropped: event => scan.scanDropped(event.urls)

        DropIndicator {
            visible: drop.containsDrag
            text: qsTr("Drop to scan this folder")
        }
    }
    // The keys that some keyboards have for it; the commands' own are in the menu.
    Shortcut {
        sequences: ["Back", Qt.platform.os === "osx" ? "Alt+Left" : ""]
        enabled: actions.back.enabled
        onActivated: history.goBack()
    }
    Shortcut {
        sequences: ["Forward", Qt.platform.os === "osx" ? "Alt+Right" : ""]
        enabled: actions.forward.enabled
        onActivated: history.goForward()
    }
    // In the settings too, and over a sheet, which keeps the keys of commands from the window.
    Shortcut {
        sequence: actions.quitKeys
        context: Qt.ApplicationShortcut
        onActivated: actions.quit.trigger()
    }
    // Over everything, so that the mouse's own buttons do the same wherever the pointer is.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.BackButton | Qt.ForwardButton
        enabled: actions.enabled
        onPressed: event => history.go(event.button)
    }
    Shortcut {
        sequence: "Escape"
        enabled: toast.shown && !window.asking
        onActivated: toast.dismiss()
    }

    // A component that is bound to its surroundings is more than Qt 6.4 can make.
    SheetMaker {
        id: review

        component: Component {
            SelectionReview {
                selection: selectionPresenter // qmllint disable unqualified
            }
        }
    }
    SheetMaker {
        id: confirmation

        component: Component {
            DeleteConfirmation {
                selection: selectionPresenter // qmllint disable unqualified
                nested: review.open // qmllint disable unqualified
            }
        }
    }
    SheetMaker {
        id: about

        component: Component {
            AboutSheet {}
        }
    }
    UpdateSheet {
        id: updates

        updater: Services.updater
        held: window.asksItself || services.asking
    }
    ServiceSheets {
        id: services

        blocked: window.asksItself || updates.visible
        onPrivacyPolicyWanted: help.openPrivacyPolicy()
    }
    FolderChooser {
        id: chooser

        asker: window
        title: scan.folderPrompt
        acceptLabel: qsTr("Scan")
        firstFolder: scan.firstFolder
        onChosen: folder => scan.scanUrl(folder)
        // From then on it opens by itself.
        onDialogWanted: {
            if (window.folderDialog === null)
                window.folderDialog = window.make("QtFolderDialog.qml", {
                    chooser: chooser
                });
        }
    }
    // By its address, so that its module is loaded, and has to be installed, only where it is shown.
    Component.onCompleted: {
        if (Qt.platform.os === "osx")
            window.make("SystemMenuBar.qml", {
                actions: actions,
                window: window
            });
    }
}
