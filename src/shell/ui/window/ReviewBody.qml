import QtQuick
import Corvane.Shell
import Corvane.Window

/// The content of the review sheet: the entries and the removal buttons. Return moves the entries to the Trash.
FocusScope {
    id: body

    required property SelectionPresenter selection
    /// Whether the sheet is open.
    required property bool active

    signal cancelled
    signal trashWanted
    signal deleteWanted

    /// Whether a line is reserved for the note on the Trash. Fixed until the sheet closes, so that nothing below moves
    /// while entries are removed.
    property bool hasNoteLine: false

    onActiveChanged: hasNoteLine = active && trashNote.text !== ""

    implicitHeight: header.height + list.height + footer.height
    focus: true
    Keys.onReturnPressed: body.answerByDefault()
    Keys.onEnterPressed: body.answerByDefault()
    Accessible.role: Accessible.Dialog
    Accessible.name: body.selection.reviewTitle

    function answerByDefault() {
        if (body.selection.canRemove)
            body.trashWanted();
    }
    function focusDefault() {
        trash.forceActiveFocus(Qt.PopupFocusReason);
    }

    Item {
        id: header

        width: parent.width
        height: WindowMetrics.reviewHeaderTop + Theme.title2Line + Theme.secondaryLine + WindowMetrics.reviewHeaderBottom
            + Theme.hairlineWidth + (body.hasNoteLine ? Theme.secondaryLine : 0)

        PlainText {
            id: heading

            x: Theme.space20
            y: WindowMetrics.reviewHeaderTop
            height: Theme.title2Line
            text: body.selection.reviewTitle
            font: Theme.title2Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            id: subtitle

            x: Theme.space20
            anchors.top: heading.bottom
            height: Theme.secondaryLine
            text: body.selection.reviewSubtitle
            font: Theme.secondaryFiguresFont
            color: Theme.t2
        }
        PlainText {
            id: trashNote

            objectName: "reviewSheet.trashNote"
            x: Theme.space20
            anchors.top: subtitle.bottom
            height: Theme.secondaryLine
            visible: text !== ""
            text: body.selection.trashNote
            font: Theme.secondaryFiguresFont
            color: Theme.dangerText
            onVisibleChanged: {
                if (body.active && visible)
                    body.hasNoteLine = true;
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline
        }
    }
    ReviewList {
        id: list

        active: body.active
        anchors.top: header.bottom
        width: parent.width
    }
    SheetFooter {
        id: footer

        anchors.top: list.bottom
        width: parent.width
        apart: PushButton {
            objectName: "reviewSheet.deletePermanently"
            text: qsTr("Delete Permanently…")
            dangerText: true
            enabled: body.selection.canRemove
            onClicked: body.deleteWanted()
        }

        PushButton {
            objectName: "reviewSheet.cancel"
            text: qsTr("Cancel")
            onClicked: body.cancelled()
        }
        PushButton {
            id: trash

            objectName: "reviewSheet.moveToTrash"
            text: body.selection.trashTitle
            symbol: "trash"
            primary: true
            busy: body.selection.removing
            enabled: body.selection.canRemove
            onClicked: body.trashWanted()
        }
    }
}
