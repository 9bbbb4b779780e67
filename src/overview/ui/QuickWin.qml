import QtQuick
import Corvane.Shell
import Corvane.Overview

/// One location that can be cleared right away. A press opens the screen for that; keyboard users have the card's
/// button.
Item {
    id: win

    required property string title
    required property string sizeText
    required property string countText
    required property string symbol
    required property int tint
    required property string description
    /// Shows the size beside the title and the count below, instead of the size alone.
    property bool tall: false

    signal activated

    implicitHeight: tall ? OverviewMetrics.winRowHeight : OverviewMetrics.winBandHeight
    Accessible.role: Accessible.Link
    Accessible.name: description
    Accessible.onPressAction: win.activated()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -Theme.space8
        anchors.rightMargin: win.tall ? -Theme.space8 : 0
        radius: Theme.radiusControl
        color: mouse.containsMouse ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onClicked: win.activated()
    }
    IconBadge {
        id: badge

        anchors.verticalCenter: parent.verticalCenter
        size: win.tall ? Theme.badgeSize : OverviewMetrics.winBadgeSize
        symbol: win.symbol
        tint: Theme.cleanupTints[win.tint]
    }
    Item {
        anchors.left: badge.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.captionLine

        PlainText {
            anchors.left: parent.left
            anchors.right: size.visible ? size.left : parent.right
            anchors.rightMargin: Theme.space8
            height: Theme.bodyLine
            text: win.title
            Accessible.ignored: true
        }
        PlainText {
            id: size

            anchors.right: parent.right
            height: Theme.bodyLine
            text: win.sizeText
            font: Theme.bodyFiguresFont
            elide: Text.ElideNone
            visible: win.tall
            Accessible.ignored: true
        }
        PlainText {
            anchors.bottom: parent.bottom
            width: parent.width
            height: Theme.captionLine
            text: win.tall ? win.countText : win.sizeText
            font: Theme.captionFiguresFont
            color: Theme.t3
            Accessible.ignored: true
        }
    }
}
