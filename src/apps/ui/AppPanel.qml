import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The left part of the screen: the search field, the sort order and the list.
Item {
    id: panel

    required property UninstallerPresenter presenter
    required property string title

    /// Moves the focus to the selected entry's details.
    signal openWanted
    signal uninstallWanted

    function takeKeyboard() {
        list.forceActiveFocus(Qt.TabFocusReason);
    }

    Shortcut {
        sequence: "Ctrl+F"
        onActivated: {
            search.forceActiveFocus(Qt.ShortcutFocusReason);
            search.selectAll();
        }
    }
    Item {
        id: filter

        width: parent.width - Theme.hairlineWidth
        height: AppsMetrics.filterHeight

        SearchField {
            id: search

            objectName: "uninstaller.search"
            anchors.left: parent.left
            anchors.right: sorts.left
            anchors.leftMargin: Theme.space12
            anchors.rightMargin: Theme.space8
            y: Theme.space8
            placeholderText: qsTr("Search")
            onTextChanged: panel.presenter.apps.search = text
            // Moves the focus to the list, starting at the top result.
            Keys.onDownPressed: panel.takeKeyboard()
        }
        Segmented {
            id: sorts

            objectName: "uninstaller.sort"
            anchors.right: parent.right
            anchors.rightMargin: Theme.space12
            y: Theme.space8
            segments: panel.presenter.apps.sorts
            currentIndex: panel.presenter.apps.sort
            accessibleName: qsTr("Sort by")
            onActivated: index => panel.presenter.apps.sort = index
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline
        }
    }
    InstalledAppList {
        id: list

        objectName: "uninstaller.list"
        anchors.top: filter.bottom
        anchors.bottom: parent.bottom
        width: filter.width
        presenter: panel.presenter
        Accessible.name: panel.title
        onOpenWanted: panel.openWanted()
        onUninstallWanted: panel.uninstallWanted()
    }
    PlainText {
        objectName: "uninstaller.noMatch"
        x: Theme.space12
        y: filter.height + AppsMetrics.rowHeight
        width: filter.width - 2 * x
        height: AppsMetrics.rowHeight
        text: panel.presenter.apps.emptyText
        color: Theme.t2
        horizontalAlignment: Text.AlignHCenter
        visible: text !== ""
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Rectangle {
        anchors.right: parent.right
        width: Theme.hairlineWidth
        height: parent.height
        color: Theme.hairline
    }
}
