import QtQuick
import Corvane.Shell

/// The soft shadow and thin outline of a floating panel. Fills its parent, behind the panel.
Item {
    id: shadow

    /// 2 for menus, pills and tips; 3 for sheets.
    property int elevation: 2
    /// The corner radius of the panel.
    property real around: Theme.radiusPanel

    // The image only holds the soft corners; the rest is stretched. A smaller panel gets an image of its own.
    readonly property int reach: ShadowMetrics.reach(elevation)
    readonly property int drop: ShadowMetrics.drop(elevation)
    readonly property int drawnWidth: Math.min(Math.round(width), 2 * reach)
    readonly property int drawnHeight: Math.min(Math.round(height), 2 * reach)

    anchors.fill: parent

    BorderImage {
        x: -shadow.reach
        y: -shadow.reach + shadow.drop
        width: Math.round(shadow.width) + 2 * shadow.reach
        height: Math.round(shadow.height) + 2 * shadow.reach
        visible: shadow.drawnWidth > 0 && shadow.drawnHeight > 0
        source: visible ? "image://shadow/" + shadow.elevation + "/" + (Theme.dark ? "dark" : "light") + "/"
            + shadow.drawnWidth + "x" + shadow.drawnHeight : ""
        border.left: shadow.reach + Math.floor(shadow.drawnWidth / 2)
        border.right: shadow.reach + Math.floor((shadow.drawnWidth - 1) / 2)
        border.top: shadow.reach + Math.floor(shadow.drawnHeight / 2)
        border.bottom: shadow.reach + Math.floor((shadow.drawnHeight - 1) / 2)
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -Theme.hairlineWidth
        radius: shadow.around + Theme.hairlineWidth
        color: "transparent"
        border.width: Theme.hairlineWidth
        border.color: Theme.panelOutline
    }
}
