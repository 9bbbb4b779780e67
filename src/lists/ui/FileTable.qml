pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Lists

/// Files in columns, sortable by each, with multiple highlighted rows and a check box per row.
Item {
    id: table

    required property FileTableModel files
    required property string title

    function takeKeyboard() {
        list.forceActiveFocus(Qt.TabFocusReason);
    }

    FileTableColumns {
        id: tableColumns

        room: table.width - 2 * Theme.pageMargin - Theme.checkCellWidth
        wide: table.width >= Theme.wideContentWidth
    }
    FileTableHeader {
        id: header

        width: parent.width
        columns: tableColumns
        files: table.files
    }
    AppList {
        id: list

        function showMenu(row: int, x: real, y: real) {
            if (!table.files.prepareMenu(row))
                return;
            if (table.files.highlightedCount > 1)
                severalMenu.popup(itemAt(row), x, y);
            else
                menu.popup(itemAt(row), x, y);
        }
        function extend(row: int) {
            table.files.extendTo(row);
            goTo(row);
        }

        objectName: "lists.table"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        model: table.files
        rowHeight: Theme.tableRowHeight
        view.objectName: "lists.rows"
        view.reuseItems: true
        // With a cache buffer, the list would request rows that no longer exist after it became shorter.
        view.cacheBuffer: 0
        Accessible.name: table.title
        keys.onMoved: row => table.files.highlight(row)
        keys.onExtendWanted: row => list.extend(row)
        keys.onSelectAllWanted: table.files.highlightAll()
        keys.onToggleWanted: row => table.files.toggle(row)
        keys.onSelectWanted: row => table.files.select(row)
        keys.onOpenWanted: row => table.files.open(row)
        keys.onMenuWanted: row => list.showMenu(row, Theme.pageMargin, Theme.tableRowHeight)

        delegate: FileRow {
            required property int index

            width: list.width
            columns: tableColumns
            ringed: ListView.isCurrentItem && list.visualFocus
            onPressed: (modifiers, forMenu) => {
                list.point(index);
                table.files.press(index, modifiers, forMenu);
            }
            onOpenWanted: table.files.open(index)
            onToggleWanted: table.files.toggleOne(index)
            onMenuWanted: (x, y) => list.showMenu(index, x, y)
        }
    }
    Connections {
        target: table.files

        function onStartedAnew() {
            list.currentIndex = 0;
            list.view.positionViewAtBeginning();
        }
    }
    NodeMenu {
        id: menu

        objectName: "lists.menu"
        target: table.files.menuTarget
    }
    AppMenu {
        id: severalMenu

        objectName: "lists.severalMenu"

        AppMenuItem {
            text: table.files.severalText
            onTriggered: table.files.toggleHighlighted()
        }
    }
}
