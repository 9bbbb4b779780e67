import QtQuick
import Corvane.Shell
import Corvane.Duplicates

/// The header of a group: the first file's name, the number of copies, and the wasted space. A press folds the group.
Item {
    id: header

    required property string title
    required property string note
    required property string wasted
    required property string iconKey
    required property string description
    required property bool expanded
    /// Whether this row shows the keyboard focus.
    property bool ringed: false

    signal pressed
    signal activated

    implicitHeight: DuplicatesMetrics.headerHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.description: expanded ? qsTr("Expanded") : qsTr("Collapsed")
    Accessible.onPressAction: header.activated()

    HoverHandler {
        id: hover
    }
    TapHandler {
        onPressedChanged: if (pressed) header.pressed()
        onTapped: header.activated()
    }
    Item {
        id: line

        anchors.fill: parent
        anchors.topMargin: DuplicatesMetrics.headerTop
        anchors.leftMargin: Theme.pageMargin + DuplicatesMetrics.headerInset
        anchors.rightMargin: Theme.pageMargin

        // In the page's margin, so that the icons align with the edge of the boxes.
        FoldCaret {
            anchors.right: parent.left
            anchors.rightMargin: Theme.space4
            anchors.verticalCenter: parent.verticalCenter
            color: hover.hovered ? Theme.t1 : Theme.t3
            expanded: header.expanded
        }
        FileIcon {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            size: Theme.headerFileIconSize
            iconKey: header.iconKey
        }
        PlainText {
            id: heading

            anchors.left: icon.right
            anchors.leftMargin: DuplicatesMetrics.headerGap
            width: Math.min(implicitWidth, copies.x - x - DuplicatesMetrics.headerGap)
            height: parent.height
            text: header.title
            font: Theme.bodySemiboldFont
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
        PlainText {
            id: copies

            x: Math.min(heading.x + heading.implicitWidth, waste.x - width - DuplicatesMetrics.headerGap
                - DuplicatesMetrics.headerGap) + DuplicatesMetrics.headerGap
            width: implicitWidth
            height: parent.height
            text: header.note
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            elide: Text.ElideNone
            Accessible.ignored: true
        }
        Tag {
            id: waste

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            tone: "warning"
            text: header.wasted
            Accessible.ignored: true
        }
    }
    FocusRing {
        anchors.fill: line
        anchors.leftMargin: -DuplicatesMetrics.caretRoom
        anchors.topMargin: DuplicatesMetrics.headerTop
        anchors.bottomMargin: DuplicatesMetrics.headerTop
        around: Theme.radiusControl
        visible: header.ringed
    }
}
