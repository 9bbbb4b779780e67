import QtQuick
import Corvane.Shell

/// A button inside the content that goes somewhere or starts something.
ButtonBase {
    id: control

    property bool filled: false
    property bool small: false
    property string iconName

    readonly property color groundColor: {
        if (filled)
            return down ? Theme.accentFillPress : hovered ? Theme.accentFillHover : Theme.accentFill;
        return down ? Theme.accentSoftPress : hovered ? Theme.accentSoft : Theme.withAlpha(Theme.accentSoft, 0);
    }

    implicitHeight: small ? Theme.smallControlHeight : Theme.controlHeight
    cornerRadius: height / 2
    leftPadding: Theme.hairlineWidth + (small ? Theme.smallPillPadding : Theme.pillPadding)
    rightPadding: leftPadding
    font: small ? Theme.secondaryMediumFont : Theme.bodyMediumFont
    opacity: enabled ? 1 : Theme.disabledOpacity

    background: Rectangle {
        radius: height / 2
        color: control.groundColor
        border.width: control.filled ? 0 : Theme.hairlineWidth
        border.color: Theme.controlBorder

        Behavior on color {
            ColorAnimation {
                duration: Theme.fastDuration
                easing.type: Easing.OutQuad
            }
        }
    }
    contentItem: ButtonLabel {
        text: control.text
        font: control.font
        color: control.filled ? Theme.onFill : Theme.accentText
        iconName: control.iconName
    }
}
