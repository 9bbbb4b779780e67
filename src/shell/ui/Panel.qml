import QtQuick
import Corvane.Shell

/// A raised surface with its shadow.
Item {
    id: panel

    property alias elevation: shadow.elevation
    property alias color: surface.color
    property alias radius: surface.radius

    Shadow {
        id: shadow

        around: surface.radius
    }
    Rectangle {
        id: surface

        anchors.fill: parent
        radius: Theme.radiusPanel
        color: Theme.raised
    }
}
