import QtQuick
import Corvane.Shell

/// A box above the content of a screen: an icon, a title, a text and buttons. Without a title, the text is the message
/// itself, with the icon beside its first line.
Rectangle {
    id: banner

    property string title
    required property string text
    /// The icon, by its own name or by a symbol's name.
    property string iconName
    property string iconSymbol
    property int iconSize: Theme.bannerIconSize
    /// Whether it offers something rather than warns.
    property bool offering: false
    /// The insets of the content, without the outline.
    property int leftInset: Theme.space14
    property int rightInset: Theme.space12
    property int verticalInset: Theme.space10
    /// Between the text and the buttons.
    property int buttonGap: Theme.space12
    /// The buttons, on the right.
    property alias buttons: place.data

    readonly property bool titled: title !== ""

    implicitHeight: (titled ? heading.height : 0) + words.height + 2 * (verticalInset + Theme.hairlineWidth)
    radius: Theme.radiusBox
    color: offering ? Theme.accentSoft : Theme.warnSoft
    border.width: Theme.hairlineWidth
    border.color: offering ? Theme.accentLine : Theme.warnLine
    Accessible.role: titled ? Accessible.Pane : Accessible.AlertMessage
    Accessible.name: titled ? title : text

    Icon {
        id: icon

        x: banner.leftInset + Theme.hairlineWidth
        y: banner.titled ? Math.round((banner.height - height) / 2) : words.y
        name: banner.iconName
        symbol: banner.iconSymbol
        weight: banner.iconName === "" ? "" : "fill"
        color: banner.offering ? Theme.accentText : Theme.warnIcon
        size: banner.iconSize
    }
    PlainText {
        id: heading

        anchors.left: icon.right
        anchors.right: place.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: place.width > 0 ? banner.buttonGap : 0
        y: banner.verticalInset + Theme.hairlineWidth
        height: Theme.bodyLine
        text: banner.title
        font: Theme.bodySemiboldFont
        visible: banner.titled
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PlainText {
        id: words

        anchors.left: heading.left
        anchors.right: heading.right
        y: heading.y + (banner.titled ? heading.height : 0)
        text: banner.text
        font: banner.titled ? Theme.secondaryFont : Theme.bodyFont
        color: banner.titled ? Theme.t2 : Theme.t1
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeightMode: Text.FixedHeight
        lineHeight: banner.titled ? Theme.secondaryLine : Theme.bodyLine
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !banner.titled
    }
    Row {
        id: place

        anchors.right: parent.right
        anchors.rightMargin: banner.rightInset + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space12
    }
}
