import QtQuick
import Corvane.Shell
import Corvane.Map

/// Replaces the middle folders of a path that is too long.
Row {
    id: ellipsis

    required property string description

    signal menuWanted(Item place)

    spacing: MapMetrics.crumbSpacing

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.compact.right"
        color: Theme.t3
        size: MapMetrics.crumbCaretSize
    }
    ButtonBase {
        id: button

        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: MapMetrics.crumbHeight
        cornerRadius: Theme.radiusSmallControl
        horizontalPadding: MapMetrics.crumbPadding
        text: "…"
        font: Theme.bodyFont
        onClicked: ellipsis.menuWanted(button)

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: ellipsis.description

        background: Rectangle {
            radius: button.cornerRadius
            color: button.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
        }
        contentItem: PlainText {
            text: button.text
            color: Theme.t2
        }
    }
}
