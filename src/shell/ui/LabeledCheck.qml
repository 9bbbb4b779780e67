import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A check box with a label beside it.
T.CheckBox {
    id: control

    implicitWidth: Math.ceil(implicitContentWidth + leftPadding)
    implicitHeight: Theme.bodyLine
    leftPadding: Theme.checkBoxSize + Theme.space8
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledPlainOpacity
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: control.press()
    Accessible.onToggleAction: control.press()

    function press() {
        control.toggle();
        control.toggled();
    }

    indicator: CheckMark {
        anchors.verticalCenter: parent.verticalCenter
        checkState: control.checkState
        ringed: control.visualFocus
    }
    contentItem: PlainText {
        text: control.text
    }
}
