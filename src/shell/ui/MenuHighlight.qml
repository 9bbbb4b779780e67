import QtQuick
import Corvane.Shell

/// The background of a highlighted menu row.
Rectangle {
    property bool highlighted: false

    radius: Theme.radiusFrame
    color: highlighted ? Theme.accentFill : Theme.withAlpha(Theme.accentFill, 0)
}
