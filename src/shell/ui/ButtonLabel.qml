import QtQuick
import Corvane.Shell

/// The content of a button: an icon (or a busy indicator) before the text, a caret after it.
Item {
    id: label

    property alias text: words.text
    property alias font: words.font
    property color color: Theme.t1
    property string iconName
    property string symbol
    property int iconSize: Theme.buttonIconSize
    property string caretName
    property color caretColor: color
    property bool busy: false

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.space6

        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: label.iconName
            symbol: label.symbol
            color: label.color
            size: label.iconSize
            visible: !label.busy && (name !== "" || symbol !== "")
        }
        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            color: label.color
            size: label.iconSize
            visible: label.busy
        }
        PlainText {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            color: label.color
            visible: text !== ""
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            name: label.caretName
            weight: "bold"
            color: label.caretColor
            size: Theme.caretSize
        }
    }
}
