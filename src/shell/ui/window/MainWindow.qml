import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Services
import Corvane.Updates
import Corvane.Window

/// The program's main window: the sidebar on the left, the selected screen on the right, and over it the selection bar
/// and the store's toasts. Created hidden; the caller places and shows it. Parts are created on first use, and modules
/// that only they need are loaded from a separate file at that time.
T.ApplicationWindow {
    id: window

    required property SidebarModel screens

    /// A sheet of the window or of its screen is open.
    readonly property bool asksItself: selectionSheets.open || about.open || screenView.asking
    readonly property bool asking: asksItself || services.asking || updates.visible
    /// The height of the screen that the selection bar covers.
    readonly property real coveredHeight: selectionBar.takenHeight

    /// Read here so that key presses count from the start, not from the first tip.
    readonly property bool pointerInUse: PointerUse.active

    property QtObject folderDialog: null

    /// Null if the file, or a module that it imports, is missing.
    function make(file: string, properties: var): QtObject {
        const component = Qt.createComponent(file);
        if (component.status === Component.Ready)
            return component.createObject(window, properties);
        console.info(component.errorString());
        return null;
    }

    title: Qt.application.name
    width: WindowMetrics.defaultWidth
    height: WindowMetrics.defaultHeight
    minimumWidth: Theme.minimumWidth
    minimumHeight: Theme.minimumHeight
    color: Theme.window

    // For Qt's own folder dialog; everything else takes its colours from the theme.
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
        shadow: Theme.paletteShadow
        highlight: Theme.accentFill
        highlightedText: Theme.t1
    }

    ScanPresenter {
        id: scan

        onFolderWanted: chooser.ask()
    }
    SelectionPresenter {
        id: selectionPresenter
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
        onReviewWanted: selectionSheets.showReview()
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
            onReviewWanted: selectionSheets.showReview()
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
        // Ignore drags that start in this window.
        onEntered: drag => drag.accepted = drag.source === null && scan.accepts(drag.urls)
        onDropped: event => scan.scanDropped(event.urls)

        DropIndicator {
            visible: drop.containsDrag
            text: qsTr("Drop to scan this folder")
        }
    }
    // Also active in the settings window and over sheets, which block the window's command shortcuts.
    Shortcut {
        sequence: actions.quitKeys
        context: Qt.ApplicationShortcut
        onActivated: actions.quit.trigger()
    }
    // On top of everything, so that the mouse's buttons work everywhere.
    HistoryInput {
        anchors.fill: parent
        actions: actions
        history: history
    }
    Shortcut {
        sequence: "Escape"
        enabled: toast.shown && !window.asking
        onActivated: toast.dismiss()
    }

    SelectionSheets {
        id: selectionSheets

        selection: selectionPresenter
    }
    SheetMaker {
        id: about

        component: Component {
            AboutSheet {}
        }
    }
    UpdateSheet {
        id: updates

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
        // Later requests open it by itself.
        onDialogWanted: {
            if (window.folderDialog === null)
                window.folderDialog = window.make("QtFolderDialog.qml", {
                    chooser: chooser
                });
            if (window.folderDialog === null)
                scan.reportMissingDialog();
        }
    }
    // Loaded by URL, so that its module is loaded, and must be installed, only where it is used.
    Component.onCompleted: {
        if (Qt.platform.os === "osx")
            window.make("SystemMenuBar.qml", {
                actions: actions,
                window: window
            });
    }
}
