import QtQuick
import Corvane.Shell

/// The hover and press background of one half of a split button: round at the button's end, straight at the divider.
Item {
    id: ground

    /// Qt.LeftEdge or Qt.RightEdge.
    required property int roundedSide
    required property bool primary
    required property bool hovered
    required property bool down

    clip: true

    Rectangle {
        // Wider than its visible part, so that the clip cuts the other end straight.
        x: ground.roundedSide === Qt.RightEdge ? -radius : 0
        y: Theme.hairlineWidth
        width: ground.width + radius
        height: ground.height - 2 * Theme.hairlineWidth
        radius: Theme.radiusSmallControl
        visible: ground.hovered || ground.down
        color: ground.primary ? (ground.down ? Theme.accentFillPress : Theme.accentFillHover)
            : ground.down ? Theme.hairline : Theme.controlHover
    }
}
