import QtQuick
import Corvane.Shell
import Corvane.Lists

/// Selects all listed files, or deselects them.
PushButton {
    required property FileListPresenter presenter

    objectName: "lists.selectAll"
    text: presenter.selectAllText
    enabled: !presenter.empty
    onClicked: presenter.toggleAll()
}
