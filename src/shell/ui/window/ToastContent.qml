import QtQuick
import Corvane.Shell

/// The content of a toast: a success or warning icon, and the message in at most two lines.
Item {
    id: content

    required property string text
    required property bool warning

    implicitWidth: Math.ceil(icon.width + Theme.space8 + words.implicitWidth)
    implicitHeight: words.implicitHeight

    Icon {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        name: content.warning ? "warning-circle" : "check-circle"
        weight: "fill"
        color: content.warning ? Theme.toastWarning : Theme.toastOk
    }
    PlainText {
        id: words

        anchors.left: icon.right
        anchors.leftMargin: Theme.space8
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: content.text
        color: Theme.onFill
        wrapMode: Text.Wrap
        maximumLineCount: 2
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.bodyLine
    }
}
