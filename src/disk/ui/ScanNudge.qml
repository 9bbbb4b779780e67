import QtQuick
import Corvane.Disk
import Corvane.Shell

/// Says what a scan would explain, and offers it.
Banner {
    id: nudge

    required property BreakdownPresenter presenter

    offering: true
    iconSymbol: "sparkle.magnifyingglass"
    title: SystemTexts.nudgeTitle
    text: SystemTexts.nudge
    leftInset: Theme.space16 - Theme.hairlineWidth
    rightInset: Theme.space14
    verticalInset: Theme.space12
    buttonGap: Theme.space16
    buttons: PillButton {
        objectName: "breakdown.nudge"
        filled: true
        enabled: nudge.presenter.canScan
        text: qsTr("Scan Home Folder")
        onClicked: nudge.presenter.scanHome()
    }
}
