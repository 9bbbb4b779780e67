pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Corvane.Shell
import Corvane.Duplicates

/// The groups of duplicates. Left and Right fold and unfold a group.
AppList {
    id: list

    required property string title

    Accessible.name: title

    Keys.onRightPressed: contents.setExpanded(currentIndex, true)
    Keys.onLeftPressed: {
        goTo(contents.groupRow(currentIndex));
        contents.setExpanded(currentIndex, false);
    }

    function showMenu(row: int, x: real, y: real) {
        if (contents.prepareMenu(row))
            menu.popup(itemAt(row), x, y);
    }

    rowHeight: DuplicatesMetrics.fileHeight
    view.objectName: "duplicateRows"
    // Rows outside the viewport would be incubated asynchronously, which logs an error if the window closes meanwhile.
    view.cacheBuffer: 0
    view.topMargin: DuplicatesMetrics.listMargin
    view.bottomMargin: Theme.pageMargin
    keys.onOpenWanted: row => contents.activate(row)
    keys.onToggleWanted: row => contents.toggle(row)
    keys.onSelectWanted: row => contents.select(row)
    keys.onMenuWanted: row => list.showMenu(row, Theme.pageMargin, DuplicatesMetrics.fileHeight)

    NodeMenu {
        id: menu

        objectName: "duplicatesMenu"
        target: contents.menuTarget
    }
    model: DuplicateListModel {
        id: contents

        onReplaced: {
            list.currentIndex = list.keys.firstRow();
            list.view.positionViewAtBeginning();
        }
    }
    delegate: DelegateChooser {
        role: "kind"

        DelegateChoice {
            roleValue: "group"

            DuplicateGroupHeader {
                required property int index

                width: list.width
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "file"

            DuplicateFileRow {
                required property int index

                width: list.width
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
                onToggleWanted: contents.toggle(index)
                onRevealWanted: contents.reveal(index)
                onMenuWanted: (x, y) => list.showMenu(index, x, y)
            }
        }
    }
}
