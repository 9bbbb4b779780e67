import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// One of the largest items of an expanded location.
BoxRow {
    id: row

    required property string title
    required property int elideMode
    required property string sizeText
    required property string iconKey
    required property int checkState
    required property bool checkable
    required property string checkReason
    /// Whether it is the first row below its card.
    required property bool leads

    signal toggleWanted

    bodyHeight: CleanupMetrics.entryHeight + (leads ? Theme.space4 + Theme.hairlineWidth : 0)
    nested: true
    ruled: leads
    presses: false

    Item {
        anchors.bottom: parent.bottom
        width: parent.width
        height: CleanupMetrics.entryHeight

        SelectToggle {
            x: CleanupMetrics.entryInset - (width - Theme.checkBoxSize) / 2
            height: parent.height
            focusPolicy: Qt.NoFocus
            checkState: row.checkState
            accessibleName: row.title
            protectedPlace: !row.checkable
            reason: row.checkReason
            onToggled: row.toggleWanted()
        }
        FileIcon {
            id: icon

            x: CleanupMetrics.entryTextInset
            anchors.verticalCenter: parent.verticalCenter
            iconKey: row.iconKey
        }
        PlainText {
            anchors.left: icon.right
            anchors.right: size.left
            anchors.leftMargin: Theme.space8
            anchors.rightMargin: Theme.space12
            height: parent.height
            text: row.title
            elide: row.elideMode
            Accessible.ignored: true
        }
        PlainText {
            id: size

            anchors.right: parent.right
            anchors.rightMargin: CleanupMetrics.figuresInset
            height: parent.height
            text: row.sizeText
            font: Theme.bodyFiguresFont
            elide: Text.ElideNone
            Accessible.ignored: true
        }
    }
}
