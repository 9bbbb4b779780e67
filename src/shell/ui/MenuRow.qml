import QtQuick
import Corvane.Shell

/// The visuals of a menu row: check mark, text, and the shortcut or submenu arrow.
Item {
    id: row

    required property string text
    property string detail
    property bool marked: false
    property bool markable: false
    property bool opensMenu: false
    property bool highlighted: false
    property bool active: true
    readonly property color inkColor: highlighted ? Theme.onFill : active ? Theme.t1 : Theme.t3

    implicitWidth: (markable ? mark.width + Theme.space6 : 0) + words.implicitWidth
        + (detail === "" ? 0 : Theme.space24 + shortcut.implicitWidth) + (opensMenu ? Theme.space24 + arrow.width : 0)
    implicitHeight: Theme.menuRowHeight

    Icon {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        name: "check"
        weight: "bold"
        color: row.inkColor
        size: Theme.checkIconSize
        visible: row.marked
    }
    PlainText {
        id: words

        x: row.markable ? mark.width + Theme.space6 : 0
        width: (row.detail !== "" ? shortcut.x : row.opensMenu ? arrow.x : row.width) - x
        height: row.height
        text: row.text
        color: row.inkColor
    }
    PlainText {
        id: shortcut

        anchors.right: parent.right
        height: row.height
        text: row.detail
        font: Theme.captionFont
        color: row.highlighted ? Theme.onFill : Theme.t3
    }
    Icon {
        id: arrow

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        name: "caret-right"
        weight: "bold"
        color: row.inkColor
        size: Theme.caretSize
        visible: row.opensMenu
    }
}
