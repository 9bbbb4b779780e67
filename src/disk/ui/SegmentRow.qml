import QtQuick
import Corvane.Disk
import Corvane.Shell

/// One part of the disk: what it is, what it contains, and what can be done about it.
Item {
    id: row

    required property int index
    required property string segmentId
    required property string title
    required property string detail
    required property string symbol
    required property color segmentColor
    required property string sizeText
    required property string shareText
    required property bool unexplained
    required property list<namedSizeText> largestItems
    required property string actionTitle
    required property bool needsIdle
    required property string description

    /// Whether a scan can be started.
    property bool canScan: true
    property bool isFirst: false
    property bool isLast: false
    /// Whether the part is highlighted, here or in the bar.
    property bool highlighted: false

    signal pointedAt(inside: bool)
    signal actionWanted

    implicitHeight: Math.max(badge.height, words.height, action.visible ? action.height : 0)
        + 2 * DiskMetrics.rowPadding + hairline.height
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.description: detail

    HoverHandler {
        onHoveredChanged: row.pointedAt(hovered)
    }
    // Only corners that coincide with the box's own are rounded.
    Item {
        anchors.fill: parent
        anchors.topMargin: hairline.height
        clip: true
        visible: row.highlighted

        Rectangle {
            anchors.fill: parent
            anchors.topMargin: row.isFirst ? 0 : -radius
            anchors.bottomMargin: row.isLast ? 0 : -radius
            radius: Theme.radiusBox - Theme.hairlineWidth
            color: Theme.accentRow
        }
    }
    Rectangle {
        id: hairline

        width: parent.width
        height: row.isFirst ? 0 : Theme.hairlineWidth
        color: Theme.hairline2
    }
    IconBadge {
        id: badge

        x: Theme.space14
        y: hairline.height + DiskMetrics.rowPadding
        symbol: row.symbol
        tint: row.segmentColor
        solid: true
    }
    Column {
        id: words

        anchors.left: badge.right
        anchors.right: action.visible ? action.left : figures.left
        anchors.leftMargin: DiskMetrics.rowGap
        anchors.rightMargin: DiskMetrics.rowGap
        anchors.top: badge.top

        Row {
            spacing: Theme.space8

            PlainText {
                height: Theme.bodyLine
                width: Math.min(implicitWidth, words.width - (mark.visible ? mark.width + Theme.space8 : 0))
                text: row.title
                font: Theme.bodySemiboldFont
                Accessible.ignored: true
            }
            Tag {
                id: mark

                tone: "danger"
                text: qsTr("Unexplained")
                visible: row.unexplained
            }
        }
        PlainText {
            width: Math.min(parent.width, DiskMetrics.detailWidth)
            topPadding: DiskMetrics.detailTop
            text: row.detail
            font: Theme.secondaryFont
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.secondaryLine
            Accessible.ignored: true
        }
        SegmentChildren {
            width: parent.width + gap
            topPadding: DiskMetrics.childrenTop
            largestItems: row.largestItems
            visible: largestItems.length > 0
        }
    }
    PillButton {
        id: action

        objectName: "breakdown.action." + row.segmentId
        anchors.right: figures.left
        anchors.rightMargin: DiskMetrics.rowGap
        anchors.top: badge.top
        small: true
        enabled: row.canScan || !row.needsIdle
        text: row.actionTitle
        visible: text !== ""
        Accessible.description: row.title
        onClicked: row.actionWanted()
    }
    Column {
        id: figures

        anchors.right: parent.right
        anchors.rightMargin: Theme.boxPadding
        anchors.top: badge.top
        width: DiskMetrics.figureWidth

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: row.sizeText
            font: Theme.bodySemiboldFiguresFont
            elide: Text.ElideNone
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
        PlainText {
            width: parent.width
            height: Theme.secondaryLine
            text: row.shareText
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            horizontalAlignment: Text.AlignRight
            Accessible.ignored: true
        }
    }
}
