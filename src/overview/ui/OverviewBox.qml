import QtQuick
import Corvane.Shell

/// The background of a card. Its content is inside the outline.
Rectangle {
    id: box

    default property alias content: inside.data
    /// The height of the content.
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
