import QtQuick
import Corvane.Shell
import Corvane.Services

/// Replaces the form once the message has been sent.
FocusScope {
    id: thanks

    required property FeedbackPresenter feedback

    signal done

    Accessible.role: Accessible.Dialog
    Accessible.name: heading.text
    Keys.onReturnPressed: thanks.done()
    Keys.onEnterPressed: thanks.done()

    function focusDefault() {
        done.forceActiveFocus(Qt.TabFocusReason);
    }

    Column {
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.space32
        spacing: Theme.space4

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: "checkmark.circle.fill"
            color: Theme.okText
            size: Theme.emptyStateIconSize
        }
        Item {
            width: parent.width
            height: Theme.space4
        }
        PlainText {
            id: heading

            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.title2Line
            text: qsTr("Thank you!")
            font: Theme.title2Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            objectName: "feedback.thanks"
            width: parent.width
            height: Theme.bodyLine
            text: thanks.feedback.thanksText
            color: Theme.t2
            elide: Text.ElideMiddle
            horizontalAlignment: Text.AlignHCenter
            visible: text !== ""
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Item {
            width: parent.width
            height: Theme.space8
        }
        PushButton {
            id: done

            objectName: "feedback.done"
            anchors.horizontalCenter: parent.horizontalCenter
            text: qsTr("Done")
            primary: true
            onClicked: thanks.done()
        }
    }
}
