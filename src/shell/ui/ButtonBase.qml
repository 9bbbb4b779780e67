import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// The base of every button: Space and Return press it, it has an accessible name, and it shows the keyboard focus.
T.AbstractButton {
    id: control

    /// The corner radius that the focus ring follows.
    property real cornerRadius: Theme.radiusControl
    /// Whether Return presses the button as Space does.
    property bool returnPresses: true

    // Round up to whole points, or edges fall between pixels.
    implicitWidth: Math.ceil(implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Theme.controlHeight
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    font: Theme.bodyMediumFont

    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: control.clicked()

    function press(event: KeyEvent) {
        event.accepted = returnPresses;
        if (returnPresses && !event.isAutoRepeat)
            control.clicked();
    }

    FocusRing {
        around: control.cornerRadius
        visible: control.visualFocus
    }
}
