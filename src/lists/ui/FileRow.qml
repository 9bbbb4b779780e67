import QtQuick
import Corvane.Shell
import Corvane.Lists

/// One file of a table.
Item {
    id: row

    required property FileTableColumns columns
    required property string name
    required property int elideMode
    required property string sizeText
    required property string kind
    required property string modified
    required property string location
    required property string iconKey
    required property bool highlighted
    required property int checkState
    required property bool checkable
    required property string checkReason
    required property string description

    /// Whether this row shows the keyboard focus.
    property bool ringed: false

    signal pressed(int modifiers, bool forMenu)
    signal openWanted
    signal toggleWanted
    signal menuWanted(real x, real y)

    implicitHeight: Theme.tableRowHeight

    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.focusable: true
    Accessible.focused: ringed
    Accessible.selectable: true
    Accessible.selected: highlighted
    Accessible.checkable: checkable
    Accessible.checked: checkState === Qt.Checked
    Accessible.onPressAction: row.openWanted()

    HoverHandler {
        id: hover
    }
    // Opaque, although the background below has the same colour: while a list scrolls, the software renderer processes
    // every moving cell, but skips whatever is under something opaque.
    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    Rectangle {
        anchors.fill: parent
        color: row.highlighted ? Theme.accentRow : hover.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline2
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: event => row.pressed(event.modifiers, event.button === Qt.RightButton)
        onClicked: event => {
            if (event.button === Qt.RightButton)
                row.menuWanted(event.x, event.y);
        }
        onDoubleClicked: event => {
            if (event.button === Qt.LeftButton && event.modifiers === Qt.NoModifier)
                row.openWanted();
        }
    }
    SelectToggle {
        x: Theme.pageMargin - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.checkState
        accessibleName: row.name
        protectedPlace: !row.checkable
        reason: row.checkReason
        onToggled: row.toggleWanted()
    }
    Row {
        x: Theme.pageMargin + Theme.checkCellWidth
        height: parent.height

        Item {
            width: row.columns.nameWidth
            height: parent.height

            FileIcon {
                id: icon

                anchors.verticalCenter: parent.verticalCenter
                iconKey: row.iconKey
            }
            PlainText {
                x: icon.width + Theme.space8
                width: parent.width - x - ListsMetrics.columnGap
                height: parent.height
                text: row.name
                elide: row.elideMode
                Accessible.ignored: true
            }
        }
        FileCell {
            width: row.columns.sizeWidth
            gap: ListsMetrics.figureGap
            text: row.sizeText
            font: Theme.bodyMediumFiguresFont
            color: Theme.t1
            horizontalAlignment: Text.AlignRight
        }
        FileCell {
            width: row.columns.kindWidth
            gap: ListsMetrics.kindGap
            text: row.kind
        }
        FileCell {
            width: row.columns.modifiedWidth
            text: row.modified
            font: Theme.bodyFiguresFont
        }
        FileCell {
            width: row.columns.locationWidth
            gap: 0
            text: row.location
            elide: Text.ElideMiddle
        }
    }
    FocusRing {
        inset: true
        visible: row.ringed
    }
}
