import QtQuick
import Corvane.Shell
import Corvane.Window
import Corvane.Overview

/// The ways to scan, shown before the first scan.
OverviewBox {
    id: card

    required property OverviewPresenter presenter
    required property ScanPresenter scan

    contentHeight: choices.y + choices.height + Theme.boxPadding

    CardHead {
        id: head

        width: parent.width
        large: true
        title: card.presenter.welcomeTitle
        detail: qsTr("Choose what to scan. Nothing is changed or removed; Corvane only reads sizes, names and dates.")
    }
    Row {
        id: choices

        readonly property real choiceWidth: Math.floor((width - 2 * spacing) / 3)

        anchors.top: head.bottom
        anchors.topMargin: Theme.space2
        x: Theme.boxPadding
        width: parent.width - 2 * x
        spacing: Theme.space10

        ScanChoice {
            objectName: "overview.scanHome"
            width: choices.choiceWidth
            text: qsTr("Home Folder")
            note: qsTr("Your files and app data. Recommended.")
            symbol: "house"
            preferred: true
            onClicked: card.scan.scanHome()
        }
        ScanChoice {
            objectName: "overview.scanDisk"
            width: choices.choiceWidth
            text: qsTr("Entire Disk")
            note: card.presenter.diskChoiceText
            symbol: "internaldrive"
            onClicked: card.scan.scanEntireDisk()
        }
        ScanChoice {
            objectName: "overview.scanChoose"
            width: choices.width - 2 * (choices.choiceWidth + choices.spacing)
            text: qsTr("Choose Folder…")
            note: qsTr("One folder or an external disk.")
            symbol: ""
            iconName: "folder-open"
            onClicked: card.scan.chooseFolder()
        }
    }
}
