import QtQuick
import Corvane.Shell

/// Shows whether the card is expanded.
Icon {
    required property bool expanded

    name: "caret-right"
    weight: "bold"
    color: Theme.t3
    size: Theme.caretSize + Theme.space2
    rotation: expanded ? 90 : 0

    Behavior on rotation {
        NumberAnimation {
            duration: Theme.motion(Theme.expandDuration)
            easing.type: Easing.InOutQuad
        }
    }
}
