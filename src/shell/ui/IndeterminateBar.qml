import QtQuick
import Corvane.Shell

/// Progress of unknown length. A segment sweeps along the track; with reduced motion it pulses in place.
Rectangle {
    id: bar

    /// What is in progress, for screen readers.
    required property string accessibleName

    implicitHeight: Theme.indeterminateHeight
    radius: height / 2
    color: Theme.track
    clip: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: accessibleName

    Rectangle {
        id: part

        /// From 0, left of the track, to 1, right of it.
        property real progress

        width: bar.width * Theme.indeterminatePart
        height: bar.height
        radius: bar.radius
        x: (Theme.reducedMotion ? 0.5 : progress) * (bar.width + width) - width
        color: Theme.accent

        NumberAnimation on progress {
            running: bar.visible && !Theme.reducedMotion
            from: 0
            to: 1
            duration: Theme.indeterminateSweepDuration
            loops: Animation.Infinite
        }
        Pulse on opacity {
            running: bar.visible && Theme.reducedMotion
        }
    }
}
