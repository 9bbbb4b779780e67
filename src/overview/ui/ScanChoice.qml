import QtQuick
import Corvane.Shell
import Corvane.Overview

/// One way to scan.
ButtonBase {
    id: choice

    required property string note
    required property string symbol
    property string iconName
    /// The recommended choice.
    property bool preferred: false

    implicitHeight: OverviewMetrics.choiceHeight
    cornerRadius: OverviewMetrics.choiceRadius
    Accessible.description: note

    background: Rectangle {
        radius: choice.cornerRadius
        color: choice.down ? Theme.hairline : choice.hovered ? Theme.controlHover : Theme.control
        border.width: Theme.hairlineWidth
        border.color: choice.preferred
            ? Qt.tint(Theme.controlBorder, Theme.withAlpha(Theme.accent, OverviewMetrics.choiceAccent))
            : Theme.controlBorder
    }

    Item {
        anchors.fill: parent

        IconBadge {
            id: badge

            x: Theme.space14
            anchors.verticalCenter: parent.verticalCenter
            size: Theme.largeBadgeSize
            symbol: choice.symbol
            iconName: choice.iconName
            tint: choice.preferred ? Theme.accentText : Theme.t2
        }
        PlainText {
            id: heading

            anchors.left: badge.right
            anchors.right: parent.right
            anchors.leftMargin: Theme.space12
            anchors.rightMargin: Theme.space14
            y: (parent.height - height - detail.height) / 2
            height: Theme.bodyLine
            text: choice.text
            font: Theme.bodySemiboldFont
        }
        PlainText {
            id: detail

            anchors.left: heading.left
            anchors.right: heading.right
            anchors.top: heading.bottom
            height: Theme.secondaryLine
            text: choice.note
            font: Theme.secondaryFont
            color: Theme.t2
        }
    }
}
