import QtQuick
import Corvane.Shell

/// Replaces endless movement when reduced motion is on.
SequentialAnimation {
    loops: Animation.Infinite

    NumberAnimation {
        from: 1
        to: Theme.protectedOpacity
        duration: Theme.spinnerTurnDuration
        easing.type: Easing.InOutQuad
    }
    NumberAnimation {
        from: Theme.protectedOpacity
        to: 1
        duration: Theme.spinnerTurnDuration
        easing.type: Easing.InOutQuad
    }
}
