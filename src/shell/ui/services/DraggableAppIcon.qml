import QtQuick
import Corvane.Shell
import Corvane.Services

/// The program's icon, to be dragged into a list in the system's settings: carries the URL of the application's file.
Item {
    id: icon

    /// The file URL of the dragged application.
    required property string applicationUrl
    required property string help
    readonly property bool hovering: hover.hovered

    implicitWidth: ServicesMetrics.dragSize
    implicitHeight: ServicesMetrics.dragSize
    Accessible.role: Accessible.Graphic
    Accessible.name: help

    Drag.dragType: Drag.Automatic
    Drag.supportedActions: Qt.CopyAction
    Drag.proposedAction: Qt.CopyAction
    Drag.mimeData: {
        "text/uri-list": icon.applicationUrl
    }
    Drag.imageSource: picture.source
    Drag.hotSpot.x: picture.width / 2
    Drag.hotSpot.y: picture.height / 2

    DashedFrame {
        anchors.fill: parent
        radius: Theme.radiusBox
        highlighted: icon.hovering
    }
    AppIcon {
        id: picture

        anchors.centerIn: parent
        size: ServicesMetrics.dragIconSize
    }
    HoverHandler {
        id: hover

        cursorShape: Qt.OpenHandCursor
    }
    DragHandler {
        target: null
        // Not a binding: an automatic drag resets this by itself.
        onActiveChanged: if (active) icon.Drag.active = true
    }
    Tip {
        objectName: "tip"
        text: icon.help
        pointed: icon.hovering
    }
}
