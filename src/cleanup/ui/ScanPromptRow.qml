import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Offers a scan if there is none to find build folders in, or only a partial one.
BoxRow {
    id: row

    required property string title
    required property string note
    required property string action
    /// Whether a scan is running.
    required property bool working
    /// The object name of the button.
    property alias buttonName: button.objectName

    bodyHeight: CleanupMetrics.promptHeight
    presses: false

    Item {
        anchors.left: parent.left
        anchors.right: button.left
        anchors.leftMargin: CleanupMetrics.rowInset
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: parent.verticalCenter
        height: Theme.bodyLine + Theme.secondaryLine

        PlainText {
            id: heading

            width: parent.width
            height: Theme.bodyLine
            text: row.title
            font: Theme.bodySemiboldFont
            Accessible.ignored: true
        }
        PlainText {
            anchors.top: heading.bottom
            width: parent.width
            height: Theme.secondaryLine
            text: row.note
            font: Theme.secondaryFont
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    PillButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.rowInset
        anchors.verticalCenter: parent.verticalCenter
        focusPolicy: Qt.NoFocus
        filled: true
        text: row.action
        enabled: !row.working
        onClicked: row.activated()
    }
}
