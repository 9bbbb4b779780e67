import QtQuick
import Corvane.Shell

/// A share of a whole, in the item's colour. Decorative: the number beside it says the same.
Rectangle {
    id: bar

    /// From 0 to 1.
    required property real fraction
    required property color barColor

    implicitHeight: Theme.sizeBarHeight
    radius: height / 2
    color: Theme.track
    Accessible.ignored: true

    Rectangle {
        width: bar.width * Math.min(1, Math.max(Theme.sizeBarMinimum, bar.fraction))
        height: bar.height
        radius: Math.min(bar.radius, width / 2)
        color: bar.barColor
    }
}
