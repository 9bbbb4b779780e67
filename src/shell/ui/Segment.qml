import QtQuick
import Corvane.Shell

/// One choice of a segmented control. Only the chosen one is reached by Tab.
ButtonBase {
    id: segment

    required property bool chosen

    cornerRadius: Theme.radiusSegment
    leftPadding: Theme.smallControlPadding
    rightPadding: Theme.smallControlPadding
    focusPolicy: chosen ? Qt.StrongFocus : Qt.ClickFocus
    focus: chosen
    font: chosen ? Theme.secondaryMediumFont : Theme.secondaryFont
    Accessible.role: Accessible.PageTab
    Accessible.selected: chosen

    background: Rectangle {
        radius: Theme.radiusSegment
        color: segment.chosen ? Theme.segOn
            : segment.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)

        Rectangle {
            anchors.fill: parent
            anchors.margins: -Theme.hairlineWidth
            radius: parent.radius + Theme.hairlineWidth
            color: "transparent"
            border.width: Theme.hairlineWidth
            border.color: Theme.panelOutline
            visible: segment.chosen
        }
    }
    contentItem: PlainText {
        text: segment.text
        font: segment.font
        color: segment.chosen ? Theme.t1 : Theme.t2
        horizontalAlignment: Text.AlignHCenter
    }
}
