import QtQuick
import Corvane.Shell

/// A field that filters a list. Escape clears it.
LineField {
    id: field

    leftPadding: Theme.hairlineWidth + Theme.smallControlPadding + glass.width + Theme.space6
    rightPadding: Theme.hairlineWidth + Theme.smallControlPadding + (clearButton.visible ? clearButton.width : 0)
    Accessible.searchEdit: true

    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        field.clear();
    }

    Icon {
        id: glass

        x: Theme.hairlineWidth + Theme.smallControlPadding
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifying-glass"
        color: Theme.t3
        size: Theme.searchIconSize
    }
    ButtonBase {
        id: clearButton

        anchors.right: parent.right
        height: field.height
        width: Theme.controlHeight
        focusPolicy: Qt.NoFocus
        visible: field.length > 0
        text: qsTr("Clear")
        onClicked: field.clear()

        contentItem: Item {
            Icon {
                anchors.centerIn: parent
                name: "x-circle"
                weight: "fill"
                color: Theme.t3
                size: Theme.buttonIconSize
            }
        }
    }
}
