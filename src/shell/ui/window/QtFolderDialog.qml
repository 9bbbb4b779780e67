import QtQml
import QtQuick.Dialogs
import Corvane.Window

/// Qt's own folder dialog. Opens when created, and whenever the chooser requests it.
FolderDialog {
    id: dialog

    required property FolderChooser chooser

    objectName: "folderDialog"
    title: chooser.title
    acceptLabel: chooser.acceptLabel
    currentFolder: chooser.firstFolder
    onVisibleChanged: if (visible) chooser.showHiddenFolders()
    onAccepted: chooser.chosen(selectedFolder)
    Component.onCompleted: open()

    readonly property Connections asked: Connections {
        target: dialog.chooser

        function onDialogWanted() {
            dialog.open();
        }
    }
}
