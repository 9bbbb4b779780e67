import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Window

/// One screen in the sidebar. The list has the keyboard focus; the selected row shows the ring.
Rectangle {
    id: row

    required property string title
    required property string symbol
    required property bool current
    /// Whether this row shows the keyboard focus.
    required property bool focused

    signal chosen

    readonly property bool highlighted: current && Window.active

    implicitHeight: Theme.sidebarRowHeight
    radius: Theme.radiusControl
    color: {
        if (current)
            return highlighted ? Theme.accentSoft : Theme.fillq;
        if (tap.pressed)
            return Theme.accentSoft;
        return hover.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0);
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.selectable: true
    Accessible.selected: current
    Accessible.focusable: true
    Accessible.focused: focused
    Accessible.onPressAction: row.chosen()

    Icon {
        x: WindowMetrics.sectionInset
        anchors.verticalCenter: parent.verticalCenter
        symbol: row.symbol
        weight: row.current ? "fill" : ""
        color: row.highlighted ? Theme.accentText : Theme.t2
    }
    PlainText {
        x: WindowMetrics.rowTextLeft
        width: parent.width - x - Theme.space8
        height: parent.height
        text: row.title
        font: row.current ? Theme.bodySemiboldFont : Theme.bodyFont
    }
    FocusRing {
        around: row.radius
        visible: row.focused
    }
    HoverHandler {
        id: hover
    }
    TapHandler {
        id: tap

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: row.chosen()
    }
}
