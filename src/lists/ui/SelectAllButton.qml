import QtQuick
import Corvane.Shell
import Corvane.Lists

/// Selects every file listed, or takes all out of the selection.
PushButton {
    required property FileListPresenter presenter

    objectName: "lists.selectAll"
    text: presenter.selectAllText
    enabled: !presenter.empty
    onClicked: presenter.toggleAll()
}
