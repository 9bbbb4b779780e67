import QtQuick
import Corvane.Shell

/// Stands in the middle of a card that has nothing to list: a badge, the reason, and a line about it.
Column {
    id: words

    required property string symbol
    required property color tint
    required property string title
    property string message

    spacing: Theme.space8

    IconBadge {
        anchors.horizontalCenter: parent.horizontalCenter
        size: Theme.largeBadgeSize
        symbol: words.symbol
        tint: words.tint
    }
    PlainText {
        width: parent.width
        text: words.title
        font: Theme.bodySemiboldFont
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    PlainText {
        width: parent.width
        text: words.message
        visible: text !== ""
        font: Theme.secondaryFont
        color: Theme.t2
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.secondaryLine
        horizontalAlignment: Text.AlignHCenter
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
