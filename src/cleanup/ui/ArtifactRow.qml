import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// A build folder of a project. A press shows it in the Space Map.
BoxRow {
    id: row

    required property string title
    required property string note
    required property string tag
    required property string sizeText
    required property string iconKey
    required property int checkState
    required property bool checkable
    required property string checkReason

    signal toggleWanted
    signal revealWanted

    bodyHeight: CleanupMetrics.artifactHeight

    SelectToggle {
        x: CleanupMetrics.rowInset - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.checkState
        accessibleName: row.title
        protectedPlace: !row.checkable
        reason: row.checkReason
        onToggled: row.toggleWanted()
    }
    FileIcon {
        id: icon

        x: CleanupMetrics.rowInset + Theme.checkBoxSize + Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        size: CleanupMetrics.artifactIconSize
        iconKey: row.iconKey
    }
    Item {
        anchors.left: icon.right
        anchors.right: size.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        height: parent.height

        PlainText {
            id: heading

            width: Math.min(implicitWidth, parent.width - kind.width - Theme.space8)
            height: parent.height
            text: row.title
            font: Theme.bodyMediumFont
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        Tag {
            id: kind

            anchors.left: heading.right
            anchors.leftMargin: Theme.space8
            anchors.verticalCenter: parent.verticalCenter
            text: row.tag
        }
        PlainText {
            anchors.left: kind.right
            anchors.right: parent.right
            anchors.leftMargin: Theme.space10
            height: parent.height
            text: row.note
            font: Theme.secondaryFont
            color: Theme.t3
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
    }
    PlainText {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.figuresInset
        height: parent.height
        text: row.sizeText
        font: Theme.bodySemiboldFiguresFont
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    RevealButton {
        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.rowInset + (Theme.iconSize - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        text: SystemTexts.reveal
        itemName: row.title
        onClicked: row.revealWanted()
    }
}
