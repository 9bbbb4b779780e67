import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A read-only command that can be selected. If it is too long, it is elided until it is selected.
T.TextField {
    id: field

    readonly property bool elided: !activeFocus && contentWidth > width - leftPadding - rightPadding

    implicitHeight: Theme.controlHeight
    leftPadding: Theme.hairlineWidth + Theme.space8
    rightPadding: Theme.hairlineWidth + Theme.space8
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.commandFont
    color: elided ? Theme.withAlpha(Theme.t1, 0) : Theme.t1
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.onFill
    readOnly: true
    selectByMouse: true
    activeFocusOnTab: false
    clip: true

    Accessible.role: Accessible.EditableText
    Accessible.name: text
    Accessible.readOnly: true

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.window
        border.width: Theme.hairlineWidth
        border.color: Theme.hairline
    }

    PlainText {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        text: field.text
        font: field.font
        visible: field.elided
        Accessible.ignored: true
    }
    onActiveFocusChanged: {
        if (!activeFocus) {
            deselect();
            cursorPosition = 0;
        }
    }
}
