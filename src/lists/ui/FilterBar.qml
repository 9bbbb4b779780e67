import QtQuick
import Corvane.Shell
import Corvane.Lists

/// The filters of a list: its own on the left, the one by name on the right.
Rectangle {
    id: bar

    required property FileListPresenter presenter
    /// The list's own filters.
    default property alias filters: choices.data

    /// Moves the focus to the list.
    signal leaveWanted

    implicitHeight: Theme.filterBarHeight
    color: Theme.surface

    Shortcut {
        sequence: "Ctrl+F"
        onActivated: {
            search.forceActiveFocus(Qt.ShortcutFocusReason);
            search.selectAll();
        }
    }
    Row {
        id: choices

        x: Theme.pageMargin
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: -Theme.hairlineWidth / 2
        spacing: ListsMetrics.filterGap
    }
    SearchField {
        id: search

        objectName: "lists.search"
        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: choices.verticalCenter
        width: Math.min(ListsMetrics.searchWidth, parent.width - choices.width - 3 * Theme.pageMargin)
        placeholderText: qsTr("Filter by name")
        onTextChanged: bar.presenter.query = text
        Keys.onDownPressed: bar.leaveWanted()
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
}
