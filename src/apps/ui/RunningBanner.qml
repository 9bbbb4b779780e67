import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The application shown is running.
Rectangle {
    id: banner

    required property string text

    implicitHeight: AppsMetrics.bannerHeight
    radius: Theme.radiusBox
    color: Theme.warnSoft
    border.width: Theme.hairlineWidth
    border.color: Theme.warnLine
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Icon {
        id: icon

        x: Theme.space12 + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        name: "warning"
        weight: "fill"
        color: Theme.warnIcon
        size: AppsMetrics.bannerIconSize
    }
    PlainText {
        anchors.left: icon.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        height: parent.height
        text: banner.text
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
}
