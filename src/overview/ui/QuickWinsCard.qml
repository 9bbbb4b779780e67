pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Overview

/// What can be cleared right away: as a column of rows, or as a band across the whole width.
OverviewBox {
    id: card

    required property OverviewPresenter presenter
    property bool tall: false

    readonly property real bottomHeight: tall ? footer.height : 0

    contentHeight: wins.y + (tidy.visible ? tidy.height + 2 * Theme.space16 : wins.height) + OverviewMetrics.rowsBottom + bottomHeight

    CardHead {
        id: head

        width: parent.width
        title: qsTr("Quick wins")
        // In a column, the text of a card with nothing to clear is centred instead.
        detail: card.tall && card.presenter.tidy ? "" : card.presenter.quickWinsText
        busy: card.presenter.measuring
        trailing: PillButton {
            objectName: card.tall ? "" : "overview.openCleanup"
            y: Theme.space4
            small: true
            text: qsTr("Open Cleanup")
            visible: !card.tall
            onClicked: card.presenter.openCleanup()
        }
    }
    CardMessage {
        id: tidy

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.boxPadding
        // Centred between the header and the footer.
        y: head.height + Math.round((parent.height - head.height - card.bottomHeight - height) / 2)
        visible: card.tall && card.presenter.tidy
        symbol: "sparkles"
        tint: Theme.okText
        title: card.presenter.quickWinsText
        message: qsTr("What is left needs a look before you clear it.")
    }
    Grid {
        id: wins

        readonly property real cellWidth: Math.floor((width - (columns - 1) * columnSpacing) / columns)

        x: Theme.boxPadding
        anchors.top: head.bottom
        width: parent.width - 2 * x
        columns: card.tall ? 1 : 4
        columnSpacing: Theme.space8

        Repeater {
            model: card.presenter.quickWins

            delegate: QuickWin {
                width: wins.cellWidth
                tall: card.tall
                onActivated: card.presenter.openCleanup()
            }
        }
    }
    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairlineWidth + 2 * Theme.space12 + 2 * Theme.captionLine
        visible: card.tall

        Rectangle {
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline2
        }
        PlainText {
            anchors.left: parent.left
            anchors.right: open.left
            anchors.leftMargin: Theme.boxPadding
            anchors.rightMargin: Theme.space12
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Rebuilt or downloaded again when an app needs it.")
            visible: !card.presenter.tidy
            font: Theme.captionFont
            color: Theme.t3
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.captionLine
        }
        PillButton {
            id: open

            objectName: card.tall ? "overview.openCleanup" : ""
            anchors.right: parent.right
            anchors.rightMargin: Theme.boxPadding
            anchors.verticalCenter: parent.verticalCenter
            small: true
            text: qsTr("Open Cleanup")
            onClicked: card.presenter.openCleanup()
        }
    }
}
