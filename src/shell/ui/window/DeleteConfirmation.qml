import Corvane.Shell
import Corvane.Window

/// Asks for confirmation before a permanent delete.
Alert {
    id: alert

    required property SelectionPresenter selection

    objectName: "deleteConfirm"
    cancelName: "deleteConfirm.cancel"
    confirmName: "deleteConfirm.delete"
    destructive: true
    title: selection.confirmTitle
    message: selection.confirmMessage
    detail: selection.confirmNames
    confirmText: selection.confirmDelete
    onConfirmed: selection.confirm()
}
