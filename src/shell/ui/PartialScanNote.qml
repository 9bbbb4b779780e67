import QtQuick
import Corvane.Shell

/// Says that the figures come from a scan that was stopped, and offers to scan again.
Rectangle {
    id: note

    required property string text
    /// Whether a scan can be started because none is running.
    required property bool canScan
    /// The object name of the button.
    property alias buttonName: button.objectName

    signal scanWanted

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
        name: "warning-circle"
        weight: "fill"
        color: Theme.warnIcon
        size: Theme.bannerIconSize
    }
    PlainText {
        id: heading

        anchors.left: icon.right
        anchors.right: button.left
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space12
        y: Theme.space10 + Theme.hairlineWidth
        height: Theme.bodyLine
        text: note.text
        font: Theme.bodySemiboldFont
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PlainText {
        id: words

        anchors.left: heading.left
        anchors.right: heading.right
        anchors.top: heading.bottom
        text: qsTr("The figures cover only what the scan reached before it was stopped.")
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
        id: button

        anchors.right: parent.right
        anchors.rightMargin: Theme.space12 + Theme.hairlineWidth
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Scan Again")
        symbol: "arrow.clockwise"
        enabled: note.canScan
        onClicked: note.scanWanted()
    }
}
