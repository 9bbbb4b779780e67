import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// The check box of an item. Its whole cell takes the click; what the click does is the owner's business, which
/// listens to `toggled()` and sets `checkState`. A protected place cannot be checked and says why.
T.CheckBox {
    id: control

    /// Qt.Unchecked, Qt.PartiallyChecked or Qt.Checked: what the item is, never changed from here.
    required checkState
    /// What is checked: the item's name.
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
        visible: control.protectedPlace && control.reason !== "" && (control.hovered || control.visualFocus)
    }
}
