pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Disk
import Corvane.Shell

/// The legend of the bar's colours; while a part is highlighted, only that part with its size.
Item {
    id: legend

    required property BreakdownPresenter presenter
    required property stackedBarPart current
    readonly property bool isOne: current.id !== ""

    implicitHeight: entries.height

    Flow {
        id: entries

        width: parent.width
        spacing: Theme.space4
        opacity: legend.isOne ? 0 : 1

        Repeater {
            model: legend.presenter.legend

            Row {
                id: entry

                required property stackedBarPart modelData

                spacing: DiskMetrics.swatchGap
                rightPadding: DiskMetrics.legendGap - Theme.space4
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.title

                Swatch {
                    anchors.verticalCenter: parent.verticalCenter
                    color: entry.modelData.color
                }
                PlainText {
                    height: Theme.secondaryLine
                    width: Math.min(implicitWidth, legend.width / 2)
                    text: entry.modelData.title
                    font: Theme.secondaryFont
                    color: Theme.t2
                    Accessible.ignored: true
                }
            }
        }
        PlainText {
            height: Theme.secondaryLine
            text: legend.presenter.legendRest
            font: Theme.secondaryFont
            color: Theme.t3
            visible: text !== ""
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    Row {
        objectName: "breakdown.current"
        spacing: DiskMetrics.swatchGap
        visible: legend.isOne
        Accessible.ignored: true

        Swatch {
            anchors.verticalCenter: parent.verticalCenter
            color: legend.current.color
        }
        PlainText {
            height: Theme.secondaryLine
            width: Math.min(implicitWidth, legend.width / 2)
            text: legend.current.title
            font: Theme.secondarySemiboldFont
        }
        PlainText {
            height: Theme.secondaryLine
            text: legend.current.info
            font: Theme.secondaryFiguresFont
            color: Theme.t2
        }
    }
}
