import QtQuick
import Corvane.Shell
import Corvane.Services

/// Why the message was not sent; empty if there is no error.
Row {
    id: error

    required property string text
    /// The same, broken into lines for display.
    required property string lines

    spacing: Theme.space6
    visible: text !== ""

    Icon {
        id: sign

        anchors.verticalCenter: parent.verticalCenter
        name: "warning-circle"
        weight: "fill"
        color: Theme.dangerText
        size: ServicesMetrics.feedbackErrorIconSize
    }
    PlainText {
        objectName: "feedback.error"
        width: parent.width - sign.width - parent.spacing
        text: error.lines
        font: Theme.secondaryFont
        color: Theme.dangerText
        wrapMode: Text.Wrap
        maximumLineCount: ServicesMetrics.feedbackErrorLines
        lineHeightMode: Text.FixedHeight
        lineHeight: Theme.secondaryLine
        Accessible.role: Accessible.AlertMessage
        Accessible.name: error.text
    }
}
