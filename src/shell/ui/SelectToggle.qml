import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// The check box of an item. The whole cell is clickable; the owner handles `toggled()` and sets `checkState`. A
/// protected place cannot be checked and shows the reason.
T.CheckBox {
    id: control

    /// Qt.Unchecked, Qt.PartiallyChecked or Qt.Checked: set by the owner, never changed here.
    required checkState
    /// The name of the item to check.
    required property string accessibleName
    property bool protectedPlace: false
    property string reason

    implicitWidth: Theme.checkCellWidth
    implicitHeight: Theme.tableRowHeight
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    nextCheckState: () => checkState
    onClicked: if (!protectedPlace) control.toggled()

    Accessible.role: Accessible.CheckBox
    Accessible.name: accessibleName
    Accessible.description: protectedPlace ? reason : ""
    Accessible.checkable: !protectedPlace
    Accessible.checked: checkState === Qt.Checked
    Accessible.checkStateMixed: checkState === Qt.PartiallyChecked
    Accessible.onPressAction: control.clicked()
    Accessible.onToggleAction: control.clicked()

    CheckMark {
        anchors.centerIn: parent
        checkState: control.checkState
        ringed: control.visualFocus
        opacity: control.protectedPlace || !control.enabled ? Theme.protectedOpacity : 1
    }

    Tip {
        objectName: "tip"
        text: control.reason
        pointed: control.protectedPlace && control.hovered
        focused: control.protectedPlace && control.visualFocus
    }
}
