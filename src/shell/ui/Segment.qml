import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// One segment of a segmented control; the control has the keyboard focus.
T.RadioButton {
    id: segment

    /// Whether the selected segment shows the focus ring.
    required property bool ringed
    property bool large: false

    implicitWidth: Math.ceil(implicitContentWidth + leftPadding + rightPadding)
    leftPadding: Theme.smallControlPadding
    rightPadding: Theme.smallControlPadding
    focusPolicy: Qt.NoFocus
    hoverEnabled: true
    font: {
        if (large)
            return Theme.withEmoji(checked ? Theme.bodyMediumFont : Theme.bodyFont);
        return checked ? Theme.secondaryMediumFont : Theme.secondaryFont;
    }
    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: segment.clicked()

    background: Rectangle {
        radius: Theme.radiusSegment
        color: segment.checked ? Theme.segOn : segment.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)

        Rectangle {
            anchors.fill: parent
            anchors.margins: -Theme.hairlineWidth
            radius: parent.radius + Theme.hairlineWidth
            color: "transparent"
            border.width: Theme.hairlineWidth
            border.color: Theme.panelOutline
            visible: segment.checked
        }
    }
    contentItem: PlainText {
        text: segment.text
        font: segment.font
        color: segment.checked ? Theme.t1 : Theme.t2
        horizontalAlignment: Text.AlignHCenter
    }

    FocusRing {
        around: Theme.radiusSegment
        visible: segment.ringed && segment.checked
    }
}
