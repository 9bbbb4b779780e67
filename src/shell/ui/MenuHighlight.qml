import QtQuick
import Corvane.Shell

/// The ground of a row of a menu.
Rectangle {
    property bool highlighted: false

    radius: Theme.radiusFrame
    color: highlighted ? Theme.accentFill : Theme.withAlpha(Theme.accentFill, 0)
}
