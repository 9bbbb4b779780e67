import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Apps

/// An application in the list, or the entry for leftovers of deleted ones, with its size.
Item {
    id: row

    required property bool orphans
    required property string name
    required property string badge
    required property string note
    required property bool unused
    required property string sizeText
    required property string iconKey
    required property bool chosen
    required property string description
    /// Whether this row shows the keyboard focus.
    property bool ringed: false

    signal pressed
    signal menuWanted(real x, real y)

    implicitHeight: AppsMetrics.rowHeight

    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.focusable: true
    Accessible.focused: ringed
    Accessible.selectable: true
    Accessible.selected: chosen
    Accessible.onPressAction: row.pressed()

    HoverHandler {
        id: hover
    }
    Rectangle {
        anchors.fill: parent
        color: row.chosen && Window.active ? Theme.accentRow
            : row.chosen || hover.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }
    Rectangle {
        y: row.orphans ? parent.height - height : 0
        width: parent.width
        height: Theme.hairlineWidth
        color: row.orphans ? Theme.hairline : Theme.hairline2
    }
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: row.pressed()
        onClicked: event => {
            if (event.button === Qt.RightButton)
                row.menuWanted(event.x, event.y);
        }
    }
    Item {
        id: picture

        x: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.bundleIconSize
        height: width

        IconBadge {
            symbol: "questionmark.folder"
            tint: Theme.t2
            visible: row.orphans
        }
        BundleIcon {
            iconKey: row.iconKey
            visible: !row.orphans
        }
    }
    Item {
        anchors.left: picture.right
        anchors.right: size.left
        anchors.leftMargin: Theme.space10
        anchors.rightMargin: Theme.space10
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.captionLine

        PlainText {
            id: heading

            // If both do not fit, the name is elided.
            width: Math.min(implicitWidth, parent.width - (badge.visible ? badge.width + AppsMetrics.badgeGap : 0))
            height: Theme.bodyLine
            text: row.name
            font: row.chosen ? Theme.bodySemiboldFont : Theme.bodyFont
            Accessible.ignored: true
        }
        Tag {
            id: badge

            anchors.left: heading.right
            anchors.leftMargin: AppsMetrics.badgeGap
            anchors.verticalCenter: heading.verticalCenter
            text: row.badge
            visible: text !== ""
            Accessible.ignored: true
        }
        PlainText {
            anchors.top: heading.bottom
            width: parent.width
            height: Theme.captionLine
            text: row.note
            font: Theme.captionFiguresFont
            color: row.unused ? Theme.warnText : Theme.t3
            Accessible.ignored: true
        }
    }
    PlainText {
        id: size

        anchors.right: parent.right
        anchors.rightMargin: Theme.space14
        height: parent.height
        text: row.sizeText
        font: Theme.bodyFiguresFont
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    FocusRing {
        inset: true
        visible: row.ringed
    }
}
