import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The startup volume, with a summary of its used part in the lower row.
OverviewBox {
    id: card

    required property OverviewPresenter presenter
    /// The summary of the used part, in one row; provided by the breakdown's module.
    property Component breakdown

    contentHeight: summary.y + summary.height

    Icon {
        id: icon

        x: Theme.boxPadding
        anchors.verticalCenter: name.verticalCenter
        symbol: "internaldrive"
        color: Theme.t2
        size: OverviewMetrics.diskIconSize
    }
    PlainText {
        id: name

        anchors.left: icon.right
        anchors.right: bar.right
        anchors.leftMargin: Theme.space8
        y: OverviewMetrics.diskTop
        height: icon.height
        text: card.presenter.volumeName
        font: Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    DiskFigure {
        id: used

        x: Theme.boxPadding
        anchors.top: name.bottom
        anchors.topMargin: Theme.space6
        value: card.presenter.usedText
        name: qsTr("Used")
    }
    DiskFigure {
        anchors.left: used.right
        anchors.leftMargin: OverviewMetrics.diskFiguresGap
        anchors.top: used.top
        value: card.presenter.totalText
        name: qsTr("Total")
    }
    DiskFigure {
        anchors.right: bar.right
        anchors.top: used.top
        value: card.presenter.availableText
        name: qsTr("available")
    }
    GradientBar {
        id: bar

        x: Theme.boxPadding
        width: parent.width - 2 * x
        anchors.top: used.bottom
        anchors.topMargin: Theme.space8
        height: OverviewMetrics.diskBarHeight
        radius: OverviewMetrics.diskBarRadius
        fraction: card.presenter.usedFraction

        Behavior on fraction {
            NumberAnimation {
                duration: Theme.motion(Theme.figuresDuration)
                easing.type: Easing.OutCubic
            }
        }
    }
    Rectangle {
        id: rule

        width: parent.width
        anchors.top: bar.bottom
        anchors.topMargin: OverviewMetrics.diskTop
        height: Theme.hairlineWidth
        color: Theme.hairline2
    }
    Loader {
        id: summary

        anchors.top: rule.bottom
        width: parent.width
        sourceComponent: card.breakdown
    }
}
