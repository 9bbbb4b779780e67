import QtQuick
import Corvane.Shell
import Corvane.Apps

/// A warning that the current application is running.
Rectangle {
    id: banner

    required property string text

    implicitHeight: words.implicitHeight + 2 * (Theme.space8 + Theme.hairlineWidth)
    radius: Theme.radiusBox
    color: Theme.warnSoft
    border.width: Theme.hairlineWidth
    border.color: Theme.warnLine
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Icon {
        id: icon

        x: Theme.space12 + Theme.hairlineWidth
        y: words.y
        name: "warning"
        weight: "fill"
        color: Theme.warnIcon
        size: AppsMetrics.bannerIconSize
    }
    PlainText {
        id: words

        anchors.left: icon.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        y: Theme.space8 + Theme.hairlineWidth
        text: banner.text
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.bodyLine
        Accessible.ignored: true
    }
}
