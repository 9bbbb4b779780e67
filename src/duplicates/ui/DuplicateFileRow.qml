import QtQuick
import Corvane.Shell
import Corvane.Duplicates

/// One file of a group: its location, its date, and whether it is selected for removal.
BoxRow {
    id: row

    required property string title
    required property string note
    required property bool newest
    required property int checkState
    required property bool checkable
    required property string checkReason

    signal toggleWanted
    signal revealWanted

    bodyHeight: DuplicatesMetrics.fileHeight
    presses: false
    Accessible.checkable: checkable
    Accessible.checked: checkState === Qt.Checked

    SelectToggle {
        id: toggle

        x: DuplicatesMetrics.fileInset - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.checkState
        accessibleName: row.title
        protectedPlace: !row.checkable
        reason: row.checkReason
        onToggled: row.toggleWanted()
    }
    Item {
        anchors.left: parent.left
        anchors.right: reveal.left
        anchors.leftMargin: DuplicatesMetrics.fileInset + Theme.checkBoxSize + Theme.space12
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.captionLine

        PlainText {
            id: path

            width: Math.min(implicitWidth, parent.width - (tag.visible ? tag.width + Theme.space8 : 0))
            height: Theme.bodyLine
            text: row.title
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Tag {
            id: tag

            anchors.left: path.right
            anchors.leftMargin: Theme.space8
            anchors.verticalCenter: path.verticalCenter
            tone: "accent"
            text: qsTr("Newest")
            visible: row.newest
            Accessible.ignored: true
        }
        PlainText {
            anchors.top: path.bottom
            width: parent.width
            height: Theme.captionLine
            text: row.note
            font: Theme.captionFiguresFont
            color: Theme.t3
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
    }
    RevealButton {
        id: reveal

        anchors.right: parent.right
        anchors.rightMargin: DuplicatesMetrics.revealInset
        anchors.verticalCenter: parent.verticalCenter
        text: SystemTexts.reveal
        itemName: row.title
        onClicked: row.revealWanted()
    }
}
