import QtQuick
import Corvane.Shell

/// A button for an action on a list or in a sheet. Plain unless one of the variants below is set.
ButtonBase {
    id: control

    property string iconName
    property string symbol
    /// The main action; at most one per view.
    property bool primary: false
    /// The action cannot be undone.
    property bool danger: false
    /// Leads to an action that cannot be undone.
    property bool dangerText: false
    /// Confirms that the action is done.
    property bool done: false
    /// Without a background.
    property bool quiet: false
    property bool small: false
    /// Shows a busy indicator in place of the icon.
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
