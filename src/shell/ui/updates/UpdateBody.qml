import QtQuick
import Corvane.Shell
import Corvane.Updates

/// The content of the update sheet: the progress or result of a check, and the buttons.
FocusScope {
    id: body

    required property UpdatePresenter updates

    implicitHeight: words.height + answers.height
    focus: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: updates.title
    Accessible.description: updates.message

    Connections {
        target: body.updates

        // The focused button may have disappeared.
        function onStepChanged() {
            body.focusDefault();
        }
    }

    function focusDefault() {
        const button = body.updates.acceptText !== "" ? acceptButton : dismissButton;
        button.forceActiveFocus(Qt.PopupFocusReason);
    }

    Item {
        id: words

        // Enough for every step, so that the sheet does not change its size between steps.
        readonly property int usualHeight: Theme.title2Line + Theme.space4 + 3 * Theme.bodyLine

        width: parent.width
        height: content.y + Math.max(usualHeight, content.height) + Theme.space20

        AppIcon {
            id: icon

            x: Theme.space24
            y: Theme.space20 + Theme.space2
            size: Theme.alertBundleIconSize
        }
        Column {
            id: content

            anchors.left: icon.right
            anchors.right: parent.right
            anchors.leftMargin: Theme.space16
            anchors.rightMargin: Theme.space24
            y: icon.y
            spacing: Theme.space4

            PlainText {
                width: parent.width
                height: Math.max(Theme.title2Line, implicitHeight)
                text: body.updates.title
                font: Theme.title2Font
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            PlainText {
                objectName: "update.message"
                width: parent.width
                visible: text !== ""
                text: body.updates.message
                color: Theme.t2
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                lineHeightMode: Text.FixedHeight
                lineHeight: Theme.bodyLine
            }
            UpdateProgress {
                width: parent.width
                visible: body.updates.hasBar
                title: body.updates.title
                fraction: body.updates.fraction
                figures: body.updates.progress
            }
            LinkButton {
                objectName: "update.notes"
                visible: body.updates.hasReleaseNotes
                text: qsTr("What's New")
                onClicked: body.updates.openReleaseNotes()
            }
        }
    }
    Row {
        id: answers

        anchors.top: words.bottom
        anchors.right: parent.right
        anchors.rightMargin: Theme.space20
        height: Theme.controlHeight + Theme.space14
        spacing: Theme.buttonGap

        PushButton {
            id: dismissButton

            objectName: "update.dismiss"
            visible: text !== ""
            text: body.updates.dismissText
            onClicked: body.updates.dismiss()
        }
        PushButton {
            objectName: "update.reveal"
            visible: text !== ""
            text: body.updates.revealText
            onClicked: body.updates.reveal()
        }
        PushButton {
            id: acceptButton

            objectName: "update.accept"
            visible: text !== ""
            primary: true
            text: body.updates.acceptText
            onClicked: body.updates.accept()
        }
    }
}
