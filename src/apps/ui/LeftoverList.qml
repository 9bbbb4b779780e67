pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Corvane.Shell
import Corvane.Apps

/// Items of the Library in sections, each with a check box.
AppList {
    id: list

    required property LeftoverListModel contents
    /// Shows when each item was last modified, if the list is wide enough.
    required property bool dated
    readonly property bool showsDates: dated && width >= AppsMetrics.datedListWidth

    function start() {
        currentIndex = keys.firstRow();
        view.positionViewAtBeginning();
    }
    function showMenu(row: int, x: real, y: real) {
        if (contents.prepareMenu(row))
            menu.popup(itemAt(row), x, y);
    }

    model: contents
    enabled: contents.hasItems
    rowHeight: AppsMetrics.leftoverHeight
    view.objectName: list.objectName + ".rows"
    view.bottomMargin: Theme.space16
    keys.onOpenWanted: row => contents.reveal(row)
    keys.onToggleWanted: row => contents.toggle(row)
    keys.onSelectWanted: row => contents.select(row)
    keys.onSelectAllWanted: contents.selectAll()
    keys.onMenuWanted: row => list.showMenu(row, Theme.pageMargin, AppsMetrics.leftoverHeight)

    Component.onCompleted: start()

    Connections {
        target: list.contents

        function onReplaced() {
            list.start();
        }
    }
    LeftoverMenu {
        id: menu

        objectName: list.objectName + ".menu"
        target: list.contents.menuTarget
    }
    delegate: DelegateChooser {
        role: "kind"

        DelegateChoice {
            roleValue: "heading"

            LeftoverHeading {
                required property int index

                width: list.width
                first: index === 0
            }
        }
        DelegateChoice {
            roleValue: "none"

            NoLeftoversRow {
                width: list.width
            }
        }
        DelegateChoice {
            roleValue: "item"

            LeftoverItemRow {
                required property int index

                width: list.width
                showsPath: list.contents.showsPaths
                showsDate: list.showsDates
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onToggleWanted: list.contents.toggle(index)
                onRevealWanted: list.contents.reveal(index)
                onMenuWanted: (x, y) => list.showMenu(index, x, y)
            }
        }
    }
}
