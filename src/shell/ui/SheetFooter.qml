import QtQuick
import Corvane.Shell

/// The strip of a sheet that holds its answers: one that stands apart at the left, the others at the right.
Item {
    id: footer

    default property alias answers: row.data
    property alias apart: left.data
    /// How much room there is for what stands apart.
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
