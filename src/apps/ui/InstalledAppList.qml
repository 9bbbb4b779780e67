pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Apps

/// The applications, below the entry for leftovers of deleted ones. The details follow the current row.
AppList {
    id: list

    required property UninstallerPresenter presenter

    /// Moves the focus to the selected entry's details.
    signal openWanted
    signal uninstallWanted

    function choose(row: int) {
        presenter.choose(row);
    }
    function open(row: int) {
        presenter.choose(row);
        openWanted();
    }
    function askWhetherToUninstall(row: int) {
        presenter.choose(row);
        uninstallWanted();
    }
    function showMenu(row: int, x: real, y: real) {
        presenter.choose(row);
        if (presenter.prepareMenu())
            menu.popup(itemAt(row), x, y);
    }
    /// Keeps the current row on the selected entry, wherever it has moved to.
    function followChoice() {
        if (presenter.apps.chosenRow >= 0)
            currentIndex = presenter.apps.chosenRow;
    }

    model: presenter.apps
    currentIndex: 0
    rowHeight: AppsMetrics.rowHeight
    view.objectName: "uninstaller.rows"
    view.reuseItems: true
    keys.onMoved: row => list.choose(row)
    keys.onOpenWanted: row => list.open(row)
    keys.onSelectWanted: row => list.askWhetherToUninstall(row)
    keys.onMenuWanted: row => list.showMenu(row, Theme.space12, AppsMetrics.rowHeight)

    Connections {
        target: list.presenter.apps

        function onRowsChanged() {
            list.followChoice();
        }
        function onSearchChanged() {
            list.view.positionViewAtBeginning();
        }
        function onSortChanged() {
            list.view.positionViewAtBeginning();
        }
    }
    AppListMenu {
        id: menu

        objectName: "uninstaller.menu"
        target: list.presenter.menuTarget
        canUninstall: list.presenter.app.canUninstall
        removeText: list.presenter.app.removeText
        onUninstallWanted: list.uninstallWanted()
    }
    delegate: AppRow {
        required property int index

        width: list.width
        ringed: ListView.isCurrentItem && list.visualFocus
        onPressed: {
            list.point(index);
            list.choose(index);
        }
        onMenuWanted: (x, y) => list.showMenu(index, x, y)
    }
}
