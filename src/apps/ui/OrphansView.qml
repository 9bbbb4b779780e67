import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The leftovers of deleted applications, to be selected for removal.
Item {
    id: view

    required property OrphansModel orphans

    function takeKeyboard() {
        list.forceActiveFocus(Qt.TabFocusReason);
    }

    EmptyStateView {
        objectName: "uninstaller.noOrphans"
        anchors.fill: parent
        visible: !view.orphans.hasItems
        symbol: "checkmark.seal"
        title: qsTr("Nothing left behind")
        message: qsTr("No leftovers from deleted apps were found. Nice and clean.")
    }
    Item {
        id: header

        width: parent.width
        height: AppsMetrics.detailTop + Math.max(badge.height, words.height) + Theme.space14
        visible: view.orphans.hasItems

        IconBadge {
            id: badge

            x: Theme.pageMargin
            y: AppsMetrics.detailTop
            symbol: "questionmark.folder"
            tint: Theme.t2
            size: AppsMetrics.orphansBadgeSize
        }
        Column {
            id: words

            anchors.left: badge.right
            anchors.right: parent.right
            anchors.leftMargin: Theme.space16
            anchors.rightMargin: Theme.pageMargin
            y: AppsMetrics.detailTop
            spacing: Theme.space2

            PlainText {
                width: parent.width
                height: Theme.title2Line
                text: qsTr("Left behind by apps you've deleted")
                font: Theme.title2Font
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            PlainText {
                width: parent.width
                text: SystemTexts.orphans
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
    }
    LeftoverList {
        id: list

        objectName: "uninstaller.orphanList"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: view.orphans.hasItems
        contents: view.orphans
        dated: true
        Accessible.name: view.orphans.title
    }
}
