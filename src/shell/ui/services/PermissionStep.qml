import QtQuick
import Corvane.Shell
import Corvane.Services

/// One step for the user in the system's settings.
Item {
    id: step

    required property int number
    /// Rich text.
    required property string text
    required property string plainText

    implicitHeight: words.height + 2 * ServicesMetrics.stepSpace

    Rectangle {
        id: circle

        y: ServicesMetrics.stepSpace
        width: ServicesMetrics.stepNumberSize
        height: width
        radius: width / 2
        color: Theme.fillq

        PlainText {
            anchors.centerIn: parent
            text: step.number
            font: Theme.captionSemiboldFont
            color: Theme.t2
        }
    }
    Text {
        id: words

        anchors.left: circle.right
        anchors.leftMargin: Theme.space10
        anchors.right: parent.right
        y: ServicesMetrics.stepSpace
        text: step.text
        textFormat: Text.RichText
        font: Theme.bodyFont
        color: Theme.t1
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: step.plainText
    }
}
