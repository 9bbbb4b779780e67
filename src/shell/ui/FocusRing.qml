import QtQuick
import Corvane.Shell

/// The ring around the control with the keyboard focus. Fills its parent.
Rectangle {
    id: ring

    /// The corner radius of the control.
    property real around: 0
    /// Inside the edges, as for rows, instead of one point outside.
    property bool inset: false
    readonly property real outset: inset ? 0 : Theme.focusRingGap + Theme.focusRingWidth

    anchors.fill: parent
    anchors.margins: -outset
    z: 1
    color: "transparent"
    radius: around + outset
    border.width: Theme.focusRingWidth
    border.color: Theme.focus
}
