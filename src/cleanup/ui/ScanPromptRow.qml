import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// There is no scan to find build folders in: the way to one.
BoxRow {
    id: row

    required property string title
    required property string note
    /// A scan is under way.
    required property bool working

    bodyHeight: CleanupMetrics.promptHeight
    presses: false

    Item {
        anchors.left: parent.left
        anchors.right: action.left
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
        id: action

        objectName: "cleanup.scanHome"
        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.rowInset
        anchors.verticalCenter: parent.verticalCenter
        focusPolicy: Qt.NoFocus
        filled: true
        text: qsTr("Scan Home Folder")
        enabled: !row.working
        onClicked: row.activated()
    }
}
