import QtQuick
import Corvane.Shell
import Corvane.Window

/// Replaces a screen that needs a scan: offers one, or shows its progress.
Rectangle {
    id: view

    required property ScanPresenter scan
    required property string title
    required property string symbol
    required property string prompt
    required property string promptTitle

    color: Theme.surface

    ListHeader {
        id: header

        width: parent.width
        title: view.title
        symbol: view.symbol
        subtitle: view.scan.scanning ? view.scan.heading : qsTr("Needs a scan")
        toolbar: ScanToolbar {}
    }
    Item {
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width

        EmptyStateView {
            anchors.fill: parent
            actionName: "requiresScan.scan"
            visible: !view.scan.scanning
            symbol: view.symbol
            title: view.promptTitle
            message: view.prompt
            actionText: qsTr("Scan Home Folder")
            onActivated: view.scan.scanHome()
        }
        ScanProgressCard {
            anchors.centerIn: parent
            anchors.verticalCenterOffset: -Theme.emptyStateRise
            width: Math.min(parent.width - 2 * Theme.pageMargin, WindowMetrics.progressWidth)
            visible: view.scan.scanning
            scan: view.scan
        }
    }
}
