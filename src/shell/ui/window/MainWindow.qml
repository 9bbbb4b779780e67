import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Dialogs
import Corvane.Shell
import Corvane.Window

/// The program's one window: the screens at the left, the chosen one at the right, and over it what is selected
/// for removal and what the store has to say. Made hidden; whoever gives it its place shows it.
ApplicationWindow {
    id: window

    required property SidebarModel screens

    readonly property bool asking: review.visible || about.visible || confirmation.visible

    title: Qt.application.name
    width: WindowMetrics.defaultWidth
    height: WindowMetrics.defaultHeight
    minimumWidth: Theme.minimumWidth
    minimumHeight: Theme.minimumHeight
    color: Theme.window

    ScanPresenter {
        id: scan

        store: Store
        onFolderWanted: folderDialog.open()
    }
    SelectionPresenter {
        id: selection

        store: Store
        onQuestionWanted: confirmation.open()
    }
    HelpPresenter {
        id: help

        store: Store
    }
    WindowActions {
        id: actions

        screens: window.screens
        scan: scan
        selection: selection
        help: help
        enabled: !window.asking
        onReviewWanted: review.open()
        onAboutWanted: about.open()
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
            width: parent.width
            height: parent.height - selectionBar.takenHeight
            screens: window.screens
        }
        SelectionBar {
            id: selectionBar

            anchors.bottom: parent.bottom
            width: parent.width
            selection: selection
            onReviewWanted: review.open()
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
    Shortcut {
        sequence: "Escape"
        enabled: toast.shown && !window.asking
        onActivated: toast.dismiss()
    }

    SelectionReview {
        id: review

        selection: selection
    }
    DeleteConfirmation {
        id: confirmation

        selection: selection
        nested: review.visible
    }
    AboutSheet {
        id: about
    }
    FolderDialog {
        id: folderDialog

        objectName: "folderDialog"
        title: scan.folderPrompt
        acceptLabel: qsTr("Scan")
        currentFolder: scan.firstFolder
        onAccepted: scan.scanUrl(selectedFolder)
    }
    Component {
        id: systemMenuBar

        SystemMenuBar {
            actions: actions
        }
    }
    Component.onCompleted: {
        if (Qt.platform.os === "osx")
            menuBar = systemMenuBar.createObject(window) as MenuBar;
    }
}
