import QtQuick
import Corvane.Shell

/// The band at the top of a screen: its own content on the left, then controls, and the scan commands on the right.
Rectangle {
    id: band

    /// The content on the left; takes the width that the controls leave.
    default property alias content: left.data
    /// Controls on the right, spaced evenly.
    property alias trailing: controls.data
    /// The commands that every screen has, separated from the controls by a line.
    property alias toolbar: commands.data

    readonly property bool hasTrailing: controls.visibleChildren.length > 0
    readonly property bool hasToolbar: commands.visibleChildren.length > 0

    implicitHeight: Theme.bandHeight
    color: Theme.band

    Item {
        id: left

        anchors.left: parent.left
        anchors.right: controls.left
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.space12
        height: parent.height - Theme.hairlineWidth
    }
    Row {
        id: controls

        anchors.right: rule.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.rightMargin: rule.visible ? Theme.space12 : 0
        spacing: Theme.buttonGap
    }
    Rectangle {
        id: rule

        anchors.right: commands.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.rightMargin: visible ? Theme.space12 : 0
        width: visible ? Theme.hairlineWidth : 0
        height: Theme.bandRuleHeight
        color: Theme.hairline
        visible: band.hasTrailing && band.hasToolbar
    }
    Row {
        id: commands

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.rightMargin: Theme.pageMargin
        spacing: Theme.buttonGap
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
}
