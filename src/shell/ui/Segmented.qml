pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell

/// A few choices side by side, exactly one of them selected. The arrow keys change the selection.
KeyboardItem {
    id: control

    required property list<string> segments
    property int currentIndex: 0
    /// What is being chosen.
    required property string accessibleName
    /// Fills the given width, in equal segments with larger text.
    property bool fills: false

    signal activated(int index)

    implicitWidth: row.width + 2 * Theme.segmentPadding
    implicitHeight: Theme.controlHeight
    opacity: enabled ? 1 : Theme.disabledPlainOpacity
    Accessible.role: Accessible.Grouping
    Accessible.name: accessibleName

    Keys.onLeftPressed: choose(currentIndex - 1)
    Keys.onRightPressed: choose(currentIndex + 1)

    function choose(index: int) {
        if (index < 0 || index >= segments.length || index === currentIndex)
            return;
        currentIndex = index;
        activated(index);
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusControl
        color: Theme.fillq
    }
    Row {
        id: row

        x: Theme.segmentPadding
        y: Theme.segmentPadding
        height: control.height - 2 * Theme.segmentPadding

        Repeater {
            model: control.segments

            delegate: Segment {
                required property int index
                required property string modelData

                width: control.fills ? (control.width - 2 * row.x) / control.segments.length : implicitWidth
                height: row.height
                large: control.fills
                text: modelData
                checked: index === control.currentIndex
                ringed: control.visualFocus
                onClicked: control.choose(index)
            }
        }
    }
}
