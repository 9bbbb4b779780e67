import QtQuick
import Corvane.Shell
import Corvane.Lists

/// A list of files with its filters, or the reason why it is empty.
Rectangle {
    id: screen

    required property FileListPresenter presenter
    required property string title
    required property string symbol
    required property string emptySymbol
    /// The list's own filters.
    default property alias filters: filters.filters
    /// The window's own commands, shown on the right of the header.
    property Component toolbar

    color: Theme.surface

    ListHeader {
        id: header

        width: parent.width
        symbol: screen.symbol
        title: screen.title
        subtitle: screen.presenter.subtitle
        busy: screen.presenter.preparing
        trailing: SelectAllButton {
            presenter: screen.presenter
        }
        toolbar: Loader {
            sourceComponent: screen.toolbar
        }
    }
    FilterBar {
        id: filters

        anchors.top: header.bottom
        width: parent.width
        presenter: screen.presenter
        onLeaveWanted: if (table.visible) table.takeKeyboard()
    }
    FileTable {
        id: table

        anchors.top: filters.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        files: screen.presenter.files
        title: screen.title
        visible: !screen.presenter.empty
    }
    EmptyStateView {
        objectName: "lists.empty"
        anchors.fill: table
        visible: screen.presenter.empty
        symbol: screen.emptySymbol
        title: screen.presenter.emptyTitle
        message: screen.presenter.emptyText
    }
}
