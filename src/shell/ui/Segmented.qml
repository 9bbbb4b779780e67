pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell

/// A few choices side by side, one of which holds. The arrow keys move the choice.
FocusScope {
    id: control

    required property list<string> segments
    property int currentIndex: 0
    /// What is chosen here.
    required property string accessibleName

    signal activated(int index)

    implicitWidth: row.implicitWidth + 2 * Theme.segmentPadding
    implicitHeight: Theme.controlHeight
    Accessible.role: Accessible.PageTabList
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

        anchors.fill: parent
        anchors.margins: Theme.segmentPadding

        Repeater {
            model: control.segments

            delegate: Segment {
                required property int index
                required property string modelData

                height: row.height
                text: modelData
                chosen: index === control.currentIndex
                onClicked: control.choose(index)
            }
        }
    }
}
