import QtQuick
import Corvane.Shell
import Corvane.Cleanup

/// Stands for the empty locations of a group. A press lists them below it.
BoxRow {
    id: row

    required property string title
    required property bool expanded

    bodyHeight: CleanupMetrics.foldedHeight
    Accessible.description: expanded ? qsTr("Expanded") : qsTr("Collapsed")

    PlainText {
        anchors.left: parent.left
        anchors.right: caret.left
        anchors.leftMargin: CleanupMetrics.rowInset + Theme.checkBoxSize + Theme.space12
        height: parent.height
        text: row.title
        font: Theme.secondaryFont
        color: Theme.t2
        Accessible.ignored: true
    }
    FoldCaret {
        id: caret

        anchors.right: parent.right
        anchors.rightMargin: CleanupMetrics.rowInset + Theme.space4
        anchors.verticalCenter: parent.verticalCenter
        size: CleanupMetrics.caretSize
        expanded: row.expanded
    }
}
