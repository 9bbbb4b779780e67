import QtQuick
import Corvane.Shell
import Corvane.Services

/// The content of the feedback form. Return sends; in the message field, Ctrl+Return does.
FocusScope {
    id: form

    required property string title
    required property FeedbackPresenter feedback

    signal cancelled

    implicitHeight: fields.y + fields.height + ServicesMetrics.feedbackBottom + footer.height
    focus: visible
    Accessible.role: Accessible.Dialog
    Accessible.name: form.title
    Keys.onReturnPressed: form.feedback.send()
    Keys.onEnterPressed: form.feedback.send()

    function focusFirst() {
        fields.focusMessage();
    }

    IconBadge {
        id: badge

        x: Theme.space20
        y: Theme.space20
        symbol: "bubble.left.and.bubble.right.fill"
        size: Theme.largeBadgeSize
        iconSize: ServicesMetrics.feedbackIconSize
    }
    Column {
        id: heading

        anchors.left: badge.right
        anchors.leftMargin: Theme.space14
        anchors.right: parent.right
        anchors.verticalCenter: badge.verticalCenter

        PlainText {
            height: Theme.title2Line
            text: form.title
            font: Theme.title2Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            height: Theme.secondaryLine
            text: qsTr("Bugs, ideas or questions. It goes straight to the developer.")
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    FeedbackFields {
        id: fields

        anchors.top: badge.bottom
        anchors.topMargin: ServicesMetrics.feedbackBottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.space20
        anchors.rightMargin: Theme.space20
        feedback: form.feedback
    }
    SheetFooter {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        implicitHeight: Math.max(Theme.sheetFooterHeight, error.height + 2 * Theme.space14)
        apart: FeedbackError {
            id: error

            width: footer.apartWidth
            text: form.feedback.errorText
            lines: form.feedback.errorLines
        }

        PushButton {
            objectName: "feedback.cancel"
            text: form.feedback.sending ? qsTr("Close") : qsTr("Cancel")
            onClicked: form.cancelled()
        }
        PushButton {
            objectName: "feedback.send"
            text: qsTr("Send")
            primary: true
            busy: form.feedback.sending
            enabled: form.feedback.canSend
            onClicked: form.feedback.send()
        }
    }
}
