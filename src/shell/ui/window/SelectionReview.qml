import QtQuick
import Corvane.Shell
import Corvane.Window

/// All entries selected for removal, to review, deselect or remove. Closes when none is left.
Sheet {
    id: sheet

    required property SelectionPresenter selection

    objectName: "reviewSheet"
    title: selection.reviewTitle
    width: Theme.reviewSheetWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()

    ReviewBody {
        id: body

        anchors.fill: parent
        selection: sheet.selection
        active: sheet.visible
        onCancelled: sheet.close()
        onTrashWanted: sheet.selection.moveToTrash()
        onDeleteWanted: sheet.selection.deletePermanently()
    }
    Connections {
        target: sheet.selection

        function onSelectionChanged() {
            if (sheet.selection.empty)
                sheet.settle();
        }
        function onRemovingChanged() {
            if (sheet.selection.removing)
                sheet.settle();
        }
    }
}
