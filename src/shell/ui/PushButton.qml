import QtQuick
import Corvane.Shell

/// A button that acts on a list or answers a sheet. Plain unless one of the kinds is set.
ButtonBase {
    id: control

    property string iconName
    property string symbol
    /// The one main action.
    property bool primary: false
    /// Cannot be undone.
    property bool danger: false
    /// Leads to something that cannot be undone.
    property bool dangerText: false
    /// Says that it has been done.
    property bool done: false
    /// Without a ground of its own.
    property bool quiet: false
    property bool small: false
    /// Shows that the work goes on, in place of the icon.
    property bool busy: false
    /// Opens a menu.
    property bool caret: false

    readonly property bool filled: primary || danger
    readonly property color groundColor: {
        if (primary)
            return down ? Theme.accentFillPress : hovered ? Theme.accentFillHover : Theme.accentFill;
        if (danger)
            return down ? Theme.dangerFillPress : hovered ? Theme.dangerFillHover : Theme.dangerFill;
        if (quiet)
            return down ? Theme.fillqPress : hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0);
        return down ? Theme.hairline : hovered ? Theme.controlHover : Theme.control;
    }
    readonly property color textColor: {
        if (filled)
            return Theme.onFill;
        if (!enabled)
            return Theme.t3;
        return done ? Theme.okText : dangerText ? Theme.dangerText : quiet ? Theme.t2 : Theme.t1;
    }
    readonly property bool hasIcon: iconName !== "" || symbol !== "" || busy

    implicitHeight: small ? Theme.smallControlHeight : Theme.controlHeight
    cornerRadius: small ? Theme.radiusSmallControl : Theme.radiusControl
    leftPadding: Theme.hairlineWidth - (hasIcon ? Theme.space2 : 0)
        + (small ? Theme.smallControlPadding : quiet ? Theme.quietPadding : Theme.controlPadding)
    rightPadding: Theme.hairlineWidth - (caret ? Theme.space2 : 0)
        + (small ? Theme.smallControlPadding : quiet ? Theme.quietPadding : Theme.controlPadding)
    font: small ? Theme.secondaryMediumFont : Theme.bodyMediumFont
    opacity: enabled ? 1 : filled ? Theme.disabledOpacity : Theme.disabledPlainOpacity

    background: Rectangle {
        radius: control.cornerRadius
        color: control.groundColor
        border.width: control.filled || control.quiet ? 0 : Theme.hairlineWidth
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
        color: control.textColor
        iconName: control.iconName
        symbol: control.symbol
        busy: control.busy
        caretName: control.caret ? "caret-down" : ""
        caretColor: control.filled ? Theme.onFill : Theme.t3
    }
}
