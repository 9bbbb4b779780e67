import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A switch that takes effect immediately.
T.Switch {
    id: control

    /// What it turns on or off.
    required property string accessibleName

    implicitWidth: Theme.switchWidth
    implicitHeight: Theme.switchHeight
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledOpacity
    Accessible.role: Accessible.CheckBox
    Accessible.name: accessibleName
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: control.press()
    Accessible.onToggleAction: control.press()

    function press() {
        control.toggle();
        control.toggled();
    }

    indicator: Rectangle {
        width: control.width
        height: control.height
        radius: height / 2
        color: control.checked ? Theme.accentFill : Theme.switchTrack

        Rectangle {
            x: Theme.space2 + control.visualPosition * (parent.width - width - 2 * Theme.space2)
            y: Theme.space2
            width: height
            height: parent.height - 2 * Theme.space2
            radius: height / 2
            color: Theme.onFill

            Behavior on x {
                NumberAnimation {
                    duration: Theme.motion(Theme.baseDuration)
                    easing.type: Easing.OutCubic
                }
            }
        }
        FocusRing {
            around: parent.radius
            visible: control.visualFocus
        }
    }
}
