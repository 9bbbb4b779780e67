import QtQuick
import Corvane.Shell
import Corvane.Window

/// The content of a row in the review sheet: icon, name over path, size, and the button that deselects the entry.
Item {
    id: content

    required property string name
    required property string path
    required property string size
    required property string iconKey
    required property string dropTitle

    signal dropped

    FileIcon {
        id: icon

        x: Theme.space20
        anchors.verticalCenter: parent.verticalCenter
        iconKey: content.iconKey
        size: WindowMetrics.reviewIconSize
    }
    Column {
        anchors.left: icon.right
        anchors.leftMargin: Theme.space12
        anchors.right: sizeText.left
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: content.name
            elide: Text.ElideMiddle
        }
        PlainText {
            width: parent.width
            height: Theme.captionLine
            text: content.path
            font: Theme.captionFont
            color: Theme.t3
            elide: Text.ElideMiddle
        }
    }
    PlainText {
        id: sizeText

        anchors.right: drop.left
        anchors.rightMargin: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        text: content.size
        font: Theme.bodyFiguresFont
    }
    ButtonBase {
        id: drop

        objectName: "reviewSheet.drop"
        anchors.right: parent.right
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.smallControlHeight
        height: width
        focusPolicy: Qt.NoFocus
        cornerRadius: width / 2
        text: content.dropTitle
        onClicked: content.dropped()

        contentItem: Item {
            Icon {
                anchors.centerIn: parent
                symbol: "xmark.circle.fill"
                color: drop.down ? Theme.t1 : drop.hovered ? Theme.t2 : Theme.t3
            }
        }
    }
}
