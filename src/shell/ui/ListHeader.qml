import QtQuick
import Corvane.Shell

/// The header of a screen: its symbol, its title and a one-line summary.
HeaderBand {
    id: header

    required property string title
    property string subtitle
    property string symbol
    /// Whether the subtitle describes work in progress.
    property bool busy: false

    IconBadge {
        id: badge

        anchors.verticalCenter: parent.verticalCenter
        symbol: header.symbol
        visible: header.symbol !== ""
    }
    Item {
        anchors.left: badge.visible ? badge.right : parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.leftMargin: badge.visible ? Theme.bandIconGap : 0
        height: heading.height + detail.height

        PlainText {
            id: heading

            width: parent.width
            height: Theme.title2Line
            text: header.title
            font: Theme.title2Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Spinner {
            id: spinner

            anchors.verticalCenter: detail.verticalCenter
            size: Theme.buttonIconSize
            visible: header.busy
        }
        PlainText {
            id: detail

            anchors.top: heading.bottom
            anchors.left: header.busy ? spinner.right : parent.left
            anchors.right: parent.right
            anchors.leftMargin: header.busy ? Theme.space6 : 0
            height: visible ? Theme.secondaryLine : 0
            text: header.subtitle
            font: Theme.secondaryFiguresFont
            color: Theme.t2
            visible: text !== ""
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
