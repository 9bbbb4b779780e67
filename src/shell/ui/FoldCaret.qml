import QtQuick
import Corvane.Shell

/// Shows whether the rows below its row are expanded.
Icon {
    required property bool expanded

    name: "caret-right"
    weight: "bold"
    color: Theme.t3
    size: Theme.caretSize
    rotation: expanded ? 90 : 0

    Behavior on rotation {
        NumberAnimation {
            duration: Theme.motion(Theme.expandDuration)
            easing.type: Easing.InOutQuad
        }
    }
}
