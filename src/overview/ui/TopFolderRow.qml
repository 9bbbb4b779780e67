import QtQuick
import Corvane.Shell
import Corvane.Overview

/// One of the biggest items of the scanned folder.
Item {
    id: row

    required property int index
    required property string title
    required property string sizeText
    required property string iconKey
    required property color color
    required property real fraction
    required property int elideMode
    required property string description
    /// Whether this row shows the keyboard focus.
    property bool ringed: false

    signal pressed
    signal activated
    signal menuWanted(real x, real y)

    implicitHeight: OverviewMetrics.topRowHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.onPressAction: row.activated()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -Theme.space8
        anchors.rightMargin: -Theme.space8
        radius: Theme.radiusControl
        color: mouse.containsMouse ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: row.pressed()
        onClicked: event => event.button === Qt.RightButton ? row.menuWanted(event.x, event.y) : row.activated()
    }
    FileIcon {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        size: OverviewMetrics.topIconSize
        iconKey: row.iconKey
    }
    Item {
        anchors.left: icon.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.space2 + bar.height

        PlainText {
            anchors.left: parent.left
            anchors.right: size.left
            anchors.rightMargin: Theme.space8
            height: Theme.bodyLine
            text: row.title
            elide: row.elideMode
            Accessible.ignored: true
        }
        PlainText {
            id: size

            anchors.right: parent.right
            height: Theme.bodyLine
            text: row.sizeText
            font: Theme.bodyFiguresFont
            elide: Text.ElideNone
            Accessible.ignored: true
        }
        SizeBar {
            id: bar

            anchors.bottom: parent.bottom
            width: parent.width
            fraction: row.fraction
            barColor: row.color
        }
    }
    FocusRing {
        anchors.leftMargin: -Theme.space8
        anchors.rightMargin: -Theme.space8
        around: Theme.radiusControl
        inset: true
        visible: row.ringed
    }
}
