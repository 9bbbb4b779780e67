import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A field that narrows a list. Escape empties it.
T.TextField {
    id: field

    implicitWidth: Theme.menuMinimumWidth
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.hairlineWidth + Theme.smallControlPadding + glass.width + Theme.space6
    rightPadding: Theme.hairlineWidth + Theme.smallControlPadding + (clearButton.visible ? clearButton.width : 0)
    verticalAlignment: TextInput.AlignVCenter
    font: Theme.bodyFont
    color: Theme.t1
    selectionColor: Theme.accentFill
    selectedTextColor: Theme.onFill
    placeholderTextColor: Theme.t3
    selectByMouse: true
    opacity: enabled ? 1 : Theme.disabledPlainOpacity

    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText
    Accessible.searchEdit: true

    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        field.clear();
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: Theme.control
        border.width: Theme.hairlineWidth
        border.color: Theme.controlBorder
    }

    Icon {
        id: glass

        x: Theme.hairlineWidth + Theme.smallControlPadding
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifying-glass"
        color: Theme.t3
        size: Theme.searchIconSize
    }
    PlainText {
        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: field.height
        text: field.placeholderText
        color: field.placeholderTextColor
        visible: field.length === 0 && field.preeditText === ""
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
    FocusRing {
        around: Theme.radiusControl
        visible: field.activeFocus
    }
}
