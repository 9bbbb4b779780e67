import QtQuick
import Corvane.Shell

/// Shows a row's item in the file manager. Keyboard users have the row's menu for that.
ButtonBase {
    id: button

    required property string itemName

    implicitWidth: Theme.smallControlHeight
    implicitHeight: Theme.smallControlHeight
    focusPolicy: Qt.NoFocus
    cornerRadius: Theme.radiusSmallControl
    Accessible.name: qsTr("%1: %2").arg(text).arg(itemName)

    background: Rectangle {
        radius: button.cornerRadius
        color: button.down ? Theme.fillqPress : button.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }

    Icon {
        anchors.centerIn: parent
        symbol: "magnifyingglass"
        color: Theme.t3
        size: Theme.buttonIconSize
    }
    Tip {
        text: button.text
        pointed: button.hovered
    }
}
