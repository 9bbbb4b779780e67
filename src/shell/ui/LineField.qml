import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A single-line text field.
T.TextField {
    id: field

    /// The field's purpose, for screen readers, which do not see the label beside it.
    property string accessibleName: placeholderText

    implicitWidth: Theme.menuMinimumWidth
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.hairlineWidth + Theme.smallControlPadding
    rightPadding: Theme.hairlineWidth + Theme.smallControlPadding
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.bodyFont
    color: Theme.t1
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.onFill
    placeholderTextColor: Theme.t3
    selectByMouse: true
    opacity: enabled ? 1 : Theme.disabledPlainOpacity

    Accessible.role: Accessible.EditableText
    Accessible.name: accessibleName

    background: FieldGround {}

    PlainText {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        text: field.placeholderText
        color: field.placeholderTextColor
        visible: field.length === 0 && field.preeditText === ""
    }
    FocusRing {
        around: Theme.radiusControl
        visible: field.activeFocus
    }
}
