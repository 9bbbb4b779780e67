import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The header of a card: title, a line of text, and a link.
Item {
    id: head

    required property string title
    required property string detail
    property bool large: false
    /// Whether the line describes work in progress.
    property bool busy: false
    /// The content on the right.
    property alias trailing: place.data

    implicitHeight: OverviewMetrics.headTop + heading.height + Theme.secondaryLine + OverviewMetrics.headBottom

    PlainText {
        id: heading

        anchors.left: parent.left
        anchors.right: place.left
        anchors.leftMargin: Theme.boxPadding
        anchors.rightMargin: Theme.space8
        y: OverviewMetrics.headTop
        height: head.large ? Theme.title2Line : Theme.bodyLine
        text: head.title
        font: head.large ? Theme.title2Font : Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Spinner {
        id: spinner

        anchors.left: heading.left
        anchors.verticalCenter: words.verticalCenter
        size: Theme.buttonIconSize
        visible: head.busy
    }
    PlainText {
        id: words

        anchors.left: head.busy ? spinner.right : heading.left
        anchors.right: heading.right
        anchors.leftMargin: head.busy ? Theme.space6 : 0
        anchors.top: heading.bottom
        height: Theme.secondaryLine
        text: head.detail
        font: Theme.secondaryFiguresFont
        color: Theme.t2
        visible: text !== ""
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Row {
        id: place

        anchors.right: parent.right
        anchors.rightMargin: Theme.boxPadding
        y: OverviewMetrics.headTop
    }
}
