import QtQuick
import Corvane.Shell

/// A question with two answers. Return gives the default one, Escape cancels. Where the answer cannot be undone,
/// "Cancel" is the default.
Sheet {
    id: alert

    property string message
    /// A line before the message, such as the names of what the question is about.
    property string detail
    required property string confirmText
    property string cancelText: qsTr("Cancel")
    /// Of the application that the question is about; empty for others.
    property string iconKey
    /// What the answer does cannot be undone.
    property bool destructive: false
    /// The object names of the two buttons.
    property alias cancelName: body.cancelName
    property alias confirmName: body.confirmName

    signal confirmed

    width: Theme.alertWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()

    function confirm() {
        alert.settle();
        alert.confirmed();
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
        destructive: alert.destructive
        onConfirmed: alert.confirm()
        onCancelled: alert.close()
    }
}
