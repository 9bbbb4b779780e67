import QtQuick
import Corvane.Disk
import Corvane.Shell

/// "Where's My Space": the whole disk, broken down into explained parts.
Rectangle {
    id: screen

    /// The window's own commands, on the right of the header.
    property Component toolbar
    /// The id of the part under the pointer or chosen by keyboard, in the bar or in the rows.
    property string current

    color: Theme.window

    BreakdownPresenter {
        id: presenter
    }
    ListHeader {
        id: header

        width: parent.width
        symbol: "chart.bar.doc.horizontal"
        title: qsTr("Where's My Space")
        subtitle: SystemTexts.diskSubtitle
        trailing: RefreshButton {
            presenter: presenter
        }
        toolbar: Loader {
            sourceComponent: screen.toolbar
            visible: screen.toolbar !== null
        }
    }
    PlainText {
        objectName: "breakdown.loading"
        anchors.centerIn: page
        text: presenter.loadingText
        color: Theme.t2
        visible: !presenter.available
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    ScrollPage {
        id: page

        objectName: "breakdown.page"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        contentHeight: sections.y + sections.height + DiskMetrics.pageBottom
        visible: presenter.available

        Column {
            id: sections

            x: Theme.pageMargin
            y: DiskMetrics.pageTop
            width: parent.width - 2 * Theme.pageMargin
            spacing: Theme.boxGap

            BreakdownHero {
                width: parent.width
                presenter: presenter
                current: screen.current
                onPointedAt: id => screen.current = id
                onChosen: id => page.reveal(list.row(id))
            }
            ScanNudge {
                width: parent.width
                visible: presenter.needsScan
                presenter: presenter
            }
            PartialScanNote {
                width: parent.width
                visible: presenter.partialText !== ""
                title: presenter.partialText
                canScan: presenter.canScan
                buttonName: "breakdown.scanAgain"
                onScanWanted: presenter.rescan()
            }
            SegmentList {
                id: list

                width: parent.width
                presenter: presenter
                current: screen.current
                onPointedAt: id => screen.current = id
            }
            SnapshotsCard {
                width: parent.width
                visible: presenter.hasSnapshots
                presenter: presenter
            }
            Footnotes {
                width: parent.width
                notes: presenter.footnotes
            }
        }
    }
}
