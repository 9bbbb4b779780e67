import QtQuick
import Corvane.Shell

/// One row of a grouped box: its part of the outline, and the input that every row handles. The first and last row have
/// the box's rounded corners.
Item {
    id: row

    /// Fills the area inside the outline.
    default property alias content: body.data
    required property bool startsBox
    required property bool endsBox
    /// The height of the content.
    required property int bodyHeight
    required property string description
    /// The visible fraction of the row's height, from 0 to 1.
    property real part: 1
    property bool ruled: !startsBox
    /// Indented below the row above it.
    property bool nested: false
    /// Whether a single press activates the row; otherwise a double click does.
    property bool presses: true
    /// Whether this row shows the keyboard focus.
    property bool ringed: false
    readonly property bool hovered: hover.hovered

    signal pressed
    signal activated
    signal menuWanted(real x, real y)

    implicitHeight: Math.round((bodyHeight + body.y + (endsBox ? Theme.hairlineWidth : 0)) * part)
    clip: true

    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.onPressAction: row.activated()

    HoverHandler {
        id: hover
    }
    Item {
        id: box

        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        clip: true

        // Extends past the row where the box continues, so that the clip cuts it straight.
        Rectangle {
            y: row.startsBox ? 0 : -Theme.radiusBox
            width: parent.width
            height: parent.height - y + (row.endsBox ? 0 : Theme.radiusBox)
            radius: Theme.radiusBox
            color: Theme.surface
            border.width: Theme.hairlineWidth
            border.color: Theme.hairline

            Rectangle {
                anchors.fill: parent
                anchors.margins: Theme.hairlineWidth
                radius: Theme.radiusBox - Theme.hairlineWidth
                color: Theme.withAlpha(Theme.fillq, Theme.fillq.a * Theme.nestedRowOpacity)
                visible: row.nested
            }
            Rectangle {
                anchors.fill: parent
                anchors.margins: Theme.hairlineWidth
                radius: Theme.radiusBox - Theme.hairlineWidth
                color: Theme.fillq
                visible: row.presses && row.hovered
            }
        }
        Rectangle {
            x: Theme.hairlineWidth
            width: parent.width - 2 * x
            height: Theme.hairlineWidth
            color: Theme.hairline2
            visible: row.ruled
        }
    }
    MouseArea {
        anchors.fill: box
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: row.pressed()
        onClicked: event => {
            if (event.button === Qt.RightButton)
                row.menuWanted(event.x + x, event.y);
            else if (row.presses)
                row.activated();
        }
        onDoubleClicked: event => {
            if (event.button === Qt.LeftButton)
                row.activated();
        }
    }
    Item {
        id: body

        anchors.left: box.left
        anchors.right: box.right
        y: row.startsBox ? Theme.hairlineWidth : 0
        height: row.bodyHeight
    }
    FocusRing {
        anchors.fill: box
        anchors.margins: Theme.hairlineWidth
        around: Theme.radiusControl
        inset: true
        visible: row.ringed
    }
}
