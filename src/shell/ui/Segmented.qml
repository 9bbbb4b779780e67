pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A few choices side by side, one of which holds. The arrow keys move the choice.
T.Control {
    id: control

    required property list<string> segments
    property int currentIndex: 0
    /// What is chosen here.
    required property string accessibleName

    signal activated(int index)

    implicitWidth: row.width + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    padding: Theme.segmentPadding
    focusPolicy: Qt.StrongFocus
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

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.fillq
    }

    Row {
        id: row

        x: control.leftPadding
        y: control.topPadding
        height: control.availableHeight

        Repeater {
            model: control.segments

            delegate: Segment {
                required property int index
                required property string modelData

                height: row.height
                text: modelData
                checked: index === control.currentIndex
                ringed: control.visualFocus
                onClicked: control.choose(index)
            }
        }
    }
}
