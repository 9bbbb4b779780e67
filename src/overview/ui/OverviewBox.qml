import QtQuick
import Corvane.Shell

/// The ground of a card. What stands on it lies inside the outline.
Rectangle {
    id: box

    default property alias content: inside.data
    /// The height of what stands on it.
    required property real contentHeight

    implicitHeight: contentHeight + 2 * Theme.hairlineWidth
    radius: Theme.radiusBox
    color: Theme.surface
    border.width: Theme.hairlineWidth
    border.color: Theme.hairline

    Item {
        id: inside

        anchors.fill: parent
        anchors.margins: Theme.hairlineWidth
    }
}
