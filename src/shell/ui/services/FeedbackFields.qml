import QtQuick
import Corvane.Shell
import Corvane.Services

/// The fields of the form.
Column {
    id: fields

    required property FeedbackPresenter feedback

    spacing: Theme.space12
    enabled: !feedback.sending

    function focusMessage() {
        message.forceActiveFocus(Qt.TabFocusReason);
    }

    FeedbackField {
        width: parent.width
        label: qsTr("Type")

        Segmented {
            objectName: "feedback.type"
            width: parent.width
            fills: true
            accessibleName: qsTr("Type")
            segments: fields.feedback.categories
            currentIndex: fields.feedback.categoryIndex
            onActivated: index => fields.feedback.categoryIndex = index
        }
    }
    FeedbackField {
        width: parent.width
        label: qsTr("Message")
        labelHeight: Theme.controlHeight + Theme.space2

        TextBox {
            id: message

            objectName: "feedback.message"
            width: parent.width
            height: ServicesMetrics.feedbackMessageHeight
            accessibleName: qsTr("Message")
            placeholderText: fields.feedback.messageHint
            text: fields.feedback.message
            onEdited: fields.feedback.message = text
            onSubmitted: fields.feedback.send()
        }
    }
    FeedbackField {
        width: parent.width
        label: qsTr("E-mail")

        LineField {
            objectName: "feedback.email"
            width: parent.width
            accessibleName: qsTr("E-mail")
            placeholderText: qsTr("Optional, if you'd like a reply")
            inputMethodHints: Qt.ImhEmailCharactersOnly
            text: fields.feedback.email
            onTextEdited: fields.feedback.email = text
        }
    }
    FeedbackField {
        width: parent.width

        LabeledCheck {
            objectName: "feedback.include"
            text: fields.feedback.infoText
            checked: fields.feedback.includeInfo
            onToggled: fields.feedback.includeInfo = checked
        }
    }
}
