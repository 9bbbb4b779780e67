import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The command that removes an application, for the user to run.
Item {
    id: section

    required property string command
    required property string ownSize

    implicitHeight: heading.height + Theme.controlHeight + Theme.space12

    LeftoverHeading {
        id: heading

        width: parent.width
        title: qsTr("Remove the app")
        note: qsTr("Corvane never removes a package. Copy this command and run it in a terminal.")
        sizeText: section.ownSize
    }
    CommandClipboard {
        id: clipboard
    }
    CommandField {
        anchors.left: parent.left
        anchors.right: copy.left
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.buttonGap
        anchors.top: heading.bottom
        text: section.command
    }
    CopyButton {
        id: copy

        objectName: "uninstaller.copyCommand"
        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.top: heading.bottom
        clipboard: clipboard
        label: qsTr("Copy")
        command: section.command
        fixedWidth: AppsMetrics.copyWidth
    }
}
