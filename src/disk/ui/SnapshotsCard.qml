pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Disk
import Corvane.Shell

/// The snapshots that the system keeps on the disk, and the commands that list and thin them.
Rectangle {
    id: card

    required property BreakdownPresenter presenter

    implicitHeight: content.y + content.height + Theme.space14 + Theme.hairlineWidth
    radius: Theme.radiusBox
    color: Theme.surface
    border.width: Theme.hairlineWidth
    border.color: Theme.hairline

    CommandClipboard {
        id: copies
    }
    IconBadge {
        id: badge

        x: Theme.hairlineWidth + Theme.boxPadding
        y: Theme.hairlineWidth + Theme.space12
        size: Theme.smallBadgeSize
        symbol: "clock.arrow.2.circlepath"
    }
    PlainText {
        id: title

        anchors.left: badge.right
        anchors.leftMargin: Theme.space10
        anchors.verticalCenter: badge.verticalCenter
        text: SystemTexts.snapshotsTitle
        font: Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PlainText {
        anchors.left: title.right
        anchors.leftMargin: Theme.space10
        anchors.baseline: title.baseline
        text: card.presenter.snapshotsFound
        font: Theme.secondaryFiguresFont
        color: Theme.t2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Column {
        id: content

        anchors.left: title.left
        anchors.right: parent.right
        anchors.rightMargin: Theme.boxPadding + Theme.hairlineWidth
        anchors.top: badge.bottom
        anchors.topMargin: Theme.space8

        PlainText {
            width: Math.min(parent.width, DiskMetrics.snapshotTextWidth)
            bottomPadding: Theme.space10
            text: SystemTexts.snapshots
            font: Theme.secondaryFont
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.secondaryLine
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Repeater {
            model: card.presenter.snapshots

            Row {
                id: line

                required property snapshotText modelData

                height: deletion.visible ? deletion.height + Theme.space6 : DiskMetrics.snapshotLine
                spacing: Theme.space6
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.text

                Icon {
                    id: unknown

                    anchors.verticalCenter: parent.verticalCenter
                    symbol: line.modelData.symbol
                    size: Theme.buttonIconSize
                    color: Theme.t3
                }
                PlainText {
                    height: parent.height
                    // The buttons have a column of their own.
                    width: deletion.visible
                        ? DiskMetrics.snapshotNameWidth - (unknown.visible ? unknown.width + line.spacing : 0)
                        : Math.min(implicitWidth, content.width - Theme.buttonIconSize - Theme.space6)
                    text: line.modelData.text
                    font: Theme.secondaryFiguresFont
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }
                CopyButton {
                    id: deletion

                    objectName: "snapshots.copyDelete"
                    anchors.verticalCenter: parent.verticalCenter
                    visible: command !== ""
                    small: true
                    clipboard: copies
                    label: qsTr("Copy “delete” command")
                    command: line.modelData.deleteCommand
                }
            }
        }
        PlainText {
            height: DiskMetrics.snapshotLine
            text: card.presenter.moreSnapshots
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            visible: text !== ""
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Row {
            topPadding: Theme.space12
            bottomPadding: Theme.space10
            spacing: Theme.buttonGap

            CopyButton {
                objectName: "snapshots.copyList"
                clipboard: copies
                label: qsTr("Copy “list snapshots” command")
                command: card.presenter.listCommand
            }
            CopyButton {
                objectName: "snapshots.copyThin"
                clipboard: copies
                label: qsTr("Copy “free snapshots” command")
                command: card.presenter.thinCommand
                visible: command !== ""
            }
        }
        PlainText {
            width: parent.width
            height: Theme.captionLine
            text: SystemTexts.snapshotsNote
            font: Theme.captionFont
            color: Theme.t3
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
