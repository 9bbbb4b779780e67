import QtQuick
import Corvane.Shell
import Corvane.Services

/// The feedback form, and the confirmation after sending.
Sheet {
    id: sheet

    required property FeedbackPresenter feedback

    objectName: "feedback"
    title: qsTr("Send Feedback")
    width: ServicesMetrics.feedbackWidth
    height: form.implicitHeight
    onOpened: form.focusFirst()
    onAboutToHide: sheet.feedback.close()

    FeedbackForm {
        id: form

        anchors.fill: parent
        visible: !sheet.feedback.sent
        title: sheet.title
        feedback: sheet.feedback
        onCancelled: sheet.close()
    }
    FeedbackThanks {
        id: thanks

        anchors.fill: parent
        visible: sheet.feedback.sent
        feedback: sheet.feedback
        onDone: sheet.close()
        onVisibleChanged: if (visible) thanks.focusDefault()
    }
}
