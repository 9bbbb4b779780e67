import QtQuick
import Corvane.Shell
import Corvane.Window

/// The content of the About sheet.
FocusScope {
    id: body

    required property string title

    signal done

    implicitHeight: column.height + 2 * Theme.space24
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: body.title

    function focusDefault() {
        ok.forceActiveFocus(Qt.PopupFocusReason);
    }

    Column {
        id: column

        y: Theme.space24
        width: parent.width
        spacing: Theme.space4

        AppIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            size: WindowMetrics.aboutIconSize
        }
        Item {
            width: parent.width
            height: Theme.space4
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.title1Line
            text: Qt.application.name
            font: Theme.title1Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.bodyLine
            text: qsTr("Version %1").arg(Qt.application.version)
            color: Theme.t2
        }
        Item {
            width: parent.width
            height: Theme.space12
        }
        PushButton {
            id: ok

            objectName: "about.ok"
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("OK")
            primary: true
            onClicked: body.done()
        }
    }
}
