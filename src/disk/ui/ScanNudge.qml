import QtQuick
import Corvane.Disk
import Corvane.Shell

/// Says what a scan would explain, and offers it.
Rectangle {
    id: nudge

    required property BreakdownPresenter presenter

    implicitHeight: words.height + 2 * (Theme.space12 + Theme.hairlineWidth)
    radius: Theme.radiusBox
    color: Theme.accentSoft
    border.width: Theme.hairlineWidth
    border.color: Theme.accentLine

    Icon {
        id: symbol

        x: Theme.space16
        anchors.verticalCenter: parent.verticalCenter
        symbol: "sparkle.magnifyingglass"
        size: Theme.bannerIconSize
        color: Theme.accentText
    }
    Column {
        id: words

        anchors.left: symbol.right
        anchors.right: button.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space16
        anchors.verticalCenter: parent.verticalCenter

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: SystemTexts.nudgeTitle
            font: Theme.bodySemiboldFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            width: parent.width
            text: SystemTexts.nudge
            font: Theme.secondaryFont
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.secondaryLine
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    PillButton {
        id: button

        objectName: "breakdown.nudge"
        anchors.right: parent.right
        anchors.rightMargin: Theme.space14 + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        filled: true
        enabled: nudge.presenter.canScan
        text: qsTr("Scan Home Folder")
        onClicked: nudge.presenter.scanHome()
    }
}
