import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// What every button has: Space and Return press it, it says what it is, and it shows the keyboard's focus.
T.AbstractButton {
    id: control

    /// The corner radius that the focus ring follows.
    property real cornerRadius: Theme.radiusControl
    /// Whether Return does what Space does.
    property bool returnPresses: true

    // Whole points: edges fall between pixels otherwise.
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
