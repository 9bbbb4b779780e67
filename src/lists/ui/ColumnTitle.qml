import QtQuick
import Corvane.Shell
import Corvane.Lists

/// The title of a column. Sorts by that column, or reverses the order; Shift with Left or Right resizes the column, as
/// dragging its edge does.
ButtonBase {
    id: title

    required property int column
    required property FileTableColumns columns
    required property FileTableModel files
    /// Whether the column holds figures, which are right-aligned.
    property bool figures: false
    property bool resizable: true

    readonly property bool sorted: files.sortColumn === column
    readonly property int endGap: figures ? ListsMetrics.figureGap : resizable ? ListsMetrics.columnGap : 0

    readonly property real textRoom: width - endGap - (sorted ? Theme.caretSize + ListsMetrics.caretGap : 0)

    function resizeBy(event: KeyEvent, by: real) {
        event.accepted = resizable && (event.modifiers & Qt.ShiftModifier) !== 0;
        if (event.accepted)
            columns.resize(column, by);
    }

    height: parent ? parent.height : 0
    cornerRadius: Theme.radiusFrame
    Accessible.description: !sorted ? "" : files.sortDescending ? qsTr("Sorted in descending order")
        : qsTr("Sorted in ascending order")
    onClicked: title.files.sortBy(title.column)
    Keys.onLeftPressed: event => title.resizeBy(event, -ListsMetrics.resizeStep)
    Keys.onRightPressed: event => title.resizeBy(event, ListsMetrics.resizeStep)

    contentItem: Item {
        Row {
            x: title.figures ? parent.width - width - title.endGap : 0
            height: parent.height
            spacing: ListsMetrics.caretGap
            layoutDirection: title.figures ? Qt.RightToLeft : Qt.LeftToRight

            PlainText {
                width: Math.min(implicitWidth, title.textRoom)
                height: parent.height
                text: title.text
                font: title.sorted ? Theme.captionSemiboldFont : Theme.captionMediumFont
                color: title.sorted || title.hovered ? Theme.t1 : Theme.t2
            }
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                name: "caret-down"
                rotation: title.files.sortDescending ? 0 : 180
                weight: "bold"
                color: Theme.t1
                size: Theme.caretSize
                visible: title.sorted
            }
        }
    }

    MouseArea {
        id: grip

        property real start: 0

        objectName: "lists.grip"
        x: title.width - title.endGap / 2 - width / 2
        width: ListsMetrics.gripWidth
        height: title.height
        visible: title.resizable
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.SplitHCursor
        onPressed: event => start = event.x
        onPositionChanged: event => {
            if (pressed)
                title.columns.resize(title.column, event.x - start);
        }

        Rectangle {
            anchors.centerIn: parent
            width: Theme.hairlineWidth
            height: parent.height / 2
            color: Theme.hairline
            visible: grip.containsMouse || grip.pressed || title.hovered
        }
    }
}
