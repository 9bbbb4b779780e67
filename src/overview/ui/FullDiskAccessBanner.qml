import QtQuick
import Corvane.Shell

/// Says that the program lacks full disk access, what that means and how to grant it.
Rectangle {
    id: banner

    required property string title
    required property string text
    /// Whether the access is granted in the system's settings.
    required property bool hasSettings

    signal guideWanted
    signal settingsWanted

    implicitHeight: heading.height + words.height + 2 * (Theme.space10 + Theme.hairlineWidth)
    radius: Theme.radiusBox
    color: Theme.warnSoft
    border.width: Theme.hairlineWidth
    border.color: Theme.warnLine
    Accessible.role: Accessible.Pane
    Accessible.name: heading.text

    Icon {
        id: icon

        x: Theme.space14 + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        symbol: "lock.shield"
        color: Theme.warnIcon
        size: Theme.bannerIconSize
    }
    PlainText {
        id: heading

        anchors.left: icon.right
        anchors.right: guide.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        y: Theme.space10 + Theme.hairlineWidth
        height: Theme.bodyLine
        text: banner.title
        font: Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PlainText {
        id: words

        anchors.left: heading.left
        anchors.right: heading.right
        anchors.top: heading.bottom
        text: banner.text
        font: Theme.secondaryFont
        color: Theme.t2
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.secondaryLine
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    PushButton {
        id: guide

        objectName: "overview.accessGuide"
        anchors.right: banner.hasSettings ? settings.left : parent.right
        anchors.rightMargin: Theme.space12 + (banner.hasSettings ? 0 : Theme.hairlineWidth)
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Show Me How")
        onClicked: banner.guideWanted()
    }
    PushButton {
        id: settings

        objectName: "overview.accessSettings"
        anchors.right: parent.right
        anchors.rightMargin: Theme.space12 + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Open Settings")
        visible: banner.hasSettings
        onClicked: banner.settingsWanted()
    }
}
