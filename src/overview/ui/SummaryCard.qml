import QtQuick
import Corvane.Shell
import Corvane.Overview

/// What the last scan found.
OverviewBox {
    id: card

    required property OverviewPresenter presenter

    readonly property real padding: 2 * Theme.boxPadding
    readonly property real share: (width - 2 * Theme.hairlineWidth - 3 * padding) / (OverviewMetrics.scannedShare + 2)

    contentHeight: scanned.implicitHeight

    StatView {
        id: scanned

        width: Math.round(card.share * OverviewMetrics.scannedShare + card.padding)
        value: card.presenter.scannedLine
        title: card.presenter.scannedFigures
        Accessible.name: value + ", " + title
    }
    StatView {
        id: large

        anchors.left: scanned.right
        anchors.top: scanned.top
        width: Math.round(card.share + card.padding)
        ruled: true
        value: card.presenter.largeFiles
        title: qsTr("Files over 100 MB")
    }
    ButtonBase {
        id: junk

        objectName: "overview.projectJunk"
        anchors.left: large.right
        anchors.right: parent.right
        anchors.top: scanned.top
        height: scanned.height
        text: figure.Accessible.name
        onClicked: card.presenter.openCleanup()

        background: Rectangle {
            radius: Theme.radiusBox - Theme.hairlineWidth
            color: junk.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
        }

        StatView {
            id: figure

            width: parent.width
            ruled: true
            value: card.presenter.projectJunk
            title: qsTr("Project junk")
            Accessible.ignored: true
        }
        // Tells it from the figure beside it, which leads nowhere.
        Icon {
            anchors.right: parent.right
            anchors.rightMargin: Theme.boxPadding
            anchors.verticalCenter: parent.verticalCenter
            name: "caret-right"
            weight: "bold"
            color: junk.hovered ? Theme.t2 : Theme.t3
            size: Theme.caretSize
        }
    }
}
