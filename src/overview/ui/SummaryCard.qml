import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The totals of the last scan.
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
    StatLink {
        id: large

        objectName: "overview.largeFiles"
        anchors.left: scanned.right
        anchors.top: scanned.top
        width: Math.round(card.share + card.padding)
        value: card.presenter.largeFiles
        title: qsTr("Files over 100 MB")
        onClicked: card.presenter.openLargeFiles()
    }
    StatLink {
        objectName: "overview.projectJunk"
        anchors.left: large.right
        anchors.right: parent.right
        anchors.top: scanned.top
        value: card.presenter.projectJunk
        title: qsTr("Project junk")
        onClicked: card.presenter.openCleanup()
    }
}
