import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The heading of a section of leftovers: what they are, their size, and why they are listed.
Item {
    id: heading

    required property string title
    required property string note
    required property string sizeText
    property bool first: true
    readonly property int gap: first || note === "" ? 0 : AppsMetrics.headingGap

    implicitHeight: gap + AppsMetrics.headingHeight
        + (note !== "" ? reason.height - Theme.space2 + Theme.space8 : 0)
    Accessible.role: Accessible.Heading
    Accessible.name: title
    Accessible.description: sizeText

    Item {
        id: line

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
        y: heading.gap
        height: AppsMetrics.headingHeight

        PlainText {
            anchors.left: parent.left
            anchors.right: size.left
            anchors.rightMargin: Theme.space8
            height: parent.height
            text: heading.title
            font: Theme.bodySemiboldFont
            Accessible.ignored: true
        }
        PlainText {
            id: size

            anchors.right: parent.right
            height: parent.height
            text: heading.sizeText
            font: Theme.secondarySemiboldFont
            color: Theme.t2
            elide: Text.ElideNone
            Accessible.ignored: true
        }
    }
    PlainText {
        id: reason

        anchors.left: line.left
        anchors.right: line.right
        anchors.top: line.bottom
        anchors.topMargin: -Theme.space2
        text: heading.note
        font: Theme.secondaryFont
        color: Theme.t3
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.secondaryLine
        visible: text !== ""
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
