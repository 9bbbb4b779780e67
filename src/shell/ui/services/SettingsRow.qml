import QtQuick
import Corvane.Shell
import Corvane.Services

/// One row of a section: its label on the left, its control on the right.
Item {
    id: row

    default property alias control: controls.data
    required property string label
    /// A remark rather than the name of a setting.
    property bool remark: false
    /// The current value; empty for none.
    property string tag
    property string tagTone: "neutral"
    /// Whether a line separates it from the row above.
    property bool ruled: false

    implicitHeight: ServicesMetrics.settingsRowHeight

    Rectangle {
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline2
        visible: row.ruled
    }
    PlainText {
        id: words

        x: Theme.space14
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        font: row.remark ? Theme.bodyFiguresFont : Theme.bodyFont
        color: row.remark ? Theme.t2 : Theme.t1
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Tag {
        anchors.left: words.right
        anchors.leftMargin: Theme.space8
        anchors.verticalCenter: parent.verticalCenter
        tone: row.tagTone
        text: row.tag
        visible: row.tag !== ""
    }
    Item {
        id: controls

        anchors.right: parent.right
        anchors.rightMargin: Theme.space14
        anchors.verticalCenter: parent.verticalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
}
