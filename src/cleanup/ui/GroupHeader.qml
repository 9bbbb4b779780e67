import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// The header of a section of the cleanup list.
Item {
    id: header

    required property string title
    required property string symbol
    required property string note
    required property string sizeText

    implicitHeight: CleanupMetrics.headerHeight
    Accessible.role: Accessible.Heading
    Accessible.name: title
    Accessible.description: sizeText

    Item {
        anchors.fill: parent
        anchors.topMargin: CleanupMetrics.headerTop
        anchors.leftMargin: Theme.pageMargin + CleanupMetrics.headerInset
        anchors.rightMargin: Theme.pageMargin + CleanupMetrics.figuresInset

        Icon {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            symbol: header.symbol
            color: Theme.t2
        }
        PlainText {
            id: heading

            anchors.left: icon.right
            anchors.leftMargin: Theme.space8
            height: parent.height
            text: header.title
            font: Theme.bodySemiboldFont
            Accessible.ignored: true
        }
        PlainText {
            anchors.left: heading.right
            anchors.right: total.left
            anchors.leftMargin: Theme.space8
            anchors.rightMargin: Theme.space8
            height: parent.height
            text: header.note
            font: Theme.secondaryFont
            color: Theme.t2
            visible: text !== ""
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        PlainText {
            id: total

            anchors.right: parent.right
            height: parent.height
            text: header.sizeText
            font: Theme.bodySemiboldFiguresFont
            elide: Text.ElideNone
            Accessible.ignored: true
        }
    }
}
