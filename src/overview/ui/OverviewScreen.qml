import QtQuick
import Corvane.Shell
import Corvane.Window
import Corvane.Overview

/// The first screen: the volume, the scan or the ways to start one, its results, and what can be cleared right away.
/// Cards keep their positions from one state to the next.
Rectangle {
    id: screen

    /// The window's own commands, shown on the right of the header.
    property Component toolbar
    /// The summary of the breakdown for the disk card.
    property Component breakdown
    readonly property bool wide: width >= Theme.wideContentWidth

    color: Theme.window

    OverviewPresenter {
        id: presenter
    }
    ScanPresenter {
        id: scan
    }
    ListHeader {
        id: header

        width: parent.width
        symbol: "chart.pie"
        title: qsTr("Overview")
        subtitle: presenter.subtitle
        toolbar: Loader {
            sourceComponent: screen.toolbar
        }
    }
    ScrollPage {
        id: page

        objectName: "overview.page"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: cards.height + OverviewMetrics.pageTop + Theme.pageMargin

        Column {
            id: cards

            x: Theme.pageMargin
            y: OverviewMetrics.pageTop
            width: parent.width - 2 * x
            spacing: Theme.boxGap

            FullDiskAccessBanner {
                width: parent.width
                visible: presenter.needsAccess
                title: presenter.accessTitle
                text: presenter.accessText
                hasSettings: presenter.hasAccessSettings
                onGuideWanted: Services.defaults.didOnboard = false
                onSettingsWanted: presenter.openAccessSettings()
            }
            DiskCard {
                width: parent.width
                presenter: presenter
                breakdown: screen.breakdown
            }
            WelcomeCard {
                width: parent.width
                visible: !presenter.hasScan && !presenter.scanning
                presenter: presenter
                scan: scan
            }
            ScanProgressCard {
                width: parent.width
                visible: presenter.scanning
                scan: scan
                title: qsTr("Scanning")
                stopName: "overview.stop"
            }
            PartialScanNote {
                width: parent.width
                visible: scan.partialText !== ""
                title: scan.partialText
                canScan: !scan.scanning
                buttonName: "overview.scanAgain"
                onScanWanted: scan.scan()
            }
            SummaryCard {
                width: parent.width
                visible: presenter.hasScan
                presenter: presenter
            }
            FoundCards {
                width: parent.width
                visible: presenter.hasScan
                presenter: presenter
                wide: screen.wide
            }
            QuickWinsCard {
                width: parent.width
                visible: !presenter.hasScan || !screen.wide
                presenter: presenter
            }
        }
    }
}
