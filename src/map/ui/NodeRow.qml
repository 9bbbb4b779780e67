import QtQuick
import Corvane.Shell
import Corvane.Map

/// One item of the current folder, or the aggregate of its small files.
Item {
    id: row

    required property int index
    required property string name
    required property int elideMode
    required property string sizeText
    required property string iconKey
    required property real fraction
    required property color barColor
    required property bool opens
    required property bool smallFiles
    required property int checkState
    required property bool checkable
    required property string checkReason
    required property string description

    /// Whether the pointer is over this row's tile in the map.
    property bool marked: false
    /// Whether this row shows the keyboard focus.
    property bool ringed: false
    /// Whether there is room for the total size of the small files.
    property bool wide: true
    readonly property bool hovered: hover.hovered

    signal pressed
    signal clicked
    signal doubleClicked
    signal openWanted
    signal toggleWanted
    signal menuWanted(real x, real y)

    implicitHeight: Theme.nodeRowHeight

    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.focusable: true
    Accessible.focused: ringed
    Accessible.onPressAction: row.openWanted()

    HoverHandler {
        id: hover
    }
    Rectangle {
        anchors.fill: parent
        color: row.marked || row.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: row.pressed()
        onClicked: event => event.button === Qt.RightButton ? row.menuWanted(event.x, event.y) : row.clicked()
        onDoubleClicked: event => {
            if (event.button === Qt.LeftButton)
                row.doubleClicked();
        }
    }
    SelectToggle {
        id: toggle

        x: Theme.space14 - (width - Theme.checkBoxSize) / 2
        height: parent.height
        focusPolicy: Qt.NoFocus
        checkState: row.checkState
        accessibleName: row.name
        protectedPlace: !row.checkable
        reason: row.checkReason
        visible: !row.smallFiles
        onToggled: row.toggleWanted()
    }
    Item {
        id: iconPlace

        x: Theme.space14 + Theme.checkBoxSize + MapMetrics.rowGap
        width: Theme.fileIconSize
        height: parent.height

        FileIcon {
            anchors.verticalCenter: parent.verticalCenter
            iconKey: row.iconKey
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            symbol: "doc.on.doc"
            color: Theme.t2
            visible: row.smallFiles
        }
    }
    Item {
        id: body

        anchors.left: iconPlace.right
        anchors.right: caret.left
        anchors.leftMargin: MapMetrics.rowGap
        anchors.rightMargin: MapMetrics.rowGap
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + (bar.visible ? Theme.space2 + bar.height : 0)

        PlainText {
            anchors.left: parent.left
            anchors.right: size.visible ? size.left : parent.right
            anchors.rightMargin: size.visible ? Theme.space8 : 0
            height: Theme.bodyLine
            text: row.name
            color: row.smallFiles ? Theme.t2 : Theme.t1
            elide: row.elideMode
        }
        PlainText {
            id: size

            anchors.right: parent.right
            height: Theme.bodyLine
            text: row.sizeText
            font: Theme.bodyFiguresFont
            color: row.smallFiles ? Theme.t2 : Theme.t1
            elide: Text.ElideNone
            visible: row.wide || !row.smallFiles
        }
        SizeBar {
            id: bar

            y: Theme.bodyLine + Theme.space2
            width: parent.width
            height: Theme.nodeSizeBarHeight
            fraction: row.fraction
            barColor: row.barColor
            visible: !row.smallFiles
        }
    }
    Item {
        id: caret

        anchors.right: parent.right
        anchors.rightMargin: Theme.space10
        width: MapMetrics.rowCaretSize
        height: parent.height

        Icon {
            anchors.centerIn: parent
            name: "caret-right"
            color: Theme.t3
            size: MapMetrics.rowCaretSize
            visible: row.opens
        }
    }
    FocusRing {
        inset: true
        visible: row.ringed
    }
}
