import Corvane.Shell

/// Asks whether the reports of earlier crashes may be sent. Not sending is the default, so that an accidental Return
/// sends nothing.
Alert {
    objectName: "crashPrompt"
    cancelName: "crashPrompt.dontSend"
    confirmName: "crashPrompt.send"
    otherName: "crashPrompt.always"
    title: qsTr("Corvane quit unexpectedly")
    message: qsTr("Sending the crash report helps the developer fix it. It has technical details like the app version and the code that was running, never your files' contents. You can change this in Settings.")
    confirmText: qsTr("Send Report")
    otherText: qsTr("Always Send")
    cancelText: qsTr("Don't Send")
    cautious: true
}
