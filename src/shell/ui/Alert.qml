import QtQuick
import Corvane.Shell

/// A question with two or three answers. Return chooses the default one, Escape cancels. If the action cannot be
/// undone, or what it sends cannot be taken back, "Cancel" is the default.
Sheet {
    id: alert

    property string message
    /// A line above the message, such as the names of the affected items.
    property string detail
    required property string confirmText
    property string cancelText: qsTr("Cancel")
    /// The label of a third button; empty for none.
    property string otherText
    /// The icon of the application in question; empty for other questions.
    property string iconKey
    /// The action cannot be undone.
    property bool destructive: false
    /// Cancelling is the default.
    property bool cautious: destructive
    /// The object names of the buttons.
    property alias cancelName: body.cancelName
    property alias confirmName: body.confirmName
    property alias otherName: body.otherName

    signal confirmed
    signal otherChosen

    width: Theme.alertWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()

    function confirm() {
        alert.settle();
        alert.confirmed();
    }

    function chooseOther() {
        alert.settle();
        alert.otherChosen();
    }

    AlertBody {
        id: body

        anchors.fill: parent
        title: alert.title
        message: alert.message
        detail: alert.detail
        iconKey: alert.iconKey
        confirmText: alert.confirmText
        cancelText: alert.cancelText
        otherText: alert.otherText
        destructive: alert.destructive
        cautious: alert.cautious
        onOtherChosen: alert.chooseOther()
        onConfirmed: alert.confirm()
        onCancelled: alert.close()
    }
}
