import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The current application: its icon, name, details and total size.
Item {
    id: header

    required property AppDetailPresenter presenter

    implicitHeight: AppsMetrics.detailTop + AppsMetrics.detailIconSize + Theme.space14

    BundleIcon {
        id: icon

        x: Theme.pageMargin
        y: AppsMetrics.detailTop
        iconKey: header.presenter.iconKey
        size: AppsMetrics.detailIconSize
    }
    Item {
        anchors.left: icon.right
        anchors.right: total.left
        anchors.leftMargin: Theme.space16
        anchors.rightMargin: Theme.space16
        anchors.verticalCenter: icon.verticalCenter
        height: heading.height + facts.height + sizes.height

        PlainText {
            id: heading

            width: Math.min(implicitWidth, parent.width - (badge.visible ? badge.width + Theme.space10 : 0))
            height: Theme.title1Line
            text: header.presenter.name
            font: Theme.title1Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Tag {
            id: badge

            anchors.left: heading.right
            anchors.leftMargin: Theme.space10
            anchors.verticalCenter: heading.verticalCenter
            text: header.presenter.badge
            visible: text !== ""
        }
        PlainText {
            id: facts

            anchors.top: heading.bottom
            width: parent.width
            height: text === "" ? 0 : Theme.secondaryLine
            text: header.presenter.facts
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        PlainText {
            id: sizes

            anchors.top: facts.bottom
            width: parent.width
            height: Theme.secondaryLine
            text: header.presenter.sizes
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    PlainText {
        id: total

        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: icon.verticalCenter
        height: Theme.figureLine
        text: header.presenter.total
        font: Theme.figureFont
        elide: Text.ElideNone
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
