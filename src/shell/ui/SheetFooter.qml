import QtQuick
import Corvane.Shell

/// The strip of a sheet with its buttons: a separate one on the left, the others on the right.
Item {
    id: footer

    default property alias answers: row.data
    property alias apart: left.data
    /// The width available to the separate button.
    readonly property real apartWidth: row.x - left.x - Theme.space12

    implicitHeight: Theme.sheetFooterHeight

    Rectangle {
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
    Item {
        id: left

        x: Theme.space20
        anchors.verticalCenter: parent.verticalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
    Row {
        id: row

        anchors.right: parent.right
        anchors.rightMargin: Theme.space20
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.buttonGap
    }
}
