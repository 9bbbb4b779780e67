import QtQuick
import Corvane.Shell

/// A busy indicator. Rotates; with reduced motion it pulses in place.
Icon {
    id: spinner

    name: "circle-notch"
    color: Theme.t2

    RotationAnimation on rotation {
        running: spinner.visible && !Theme.reducedMotion
        from: 0
        to: 360
        duration: Theme.spinnerTurnDuration
        loops: Animation.Infinite
    }
    Pulse on opacity {
        running: spinner.visible && Theme.reducedMotion
    }
}
