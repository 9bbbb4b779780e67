pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The biggest items of the scanned folder; a press shows one in the Space Map.
OverviewBox {
    id: card

    required property OverviewPresenter presenter

    contentHeight: list.y + list.height + OverviewMetrics.rowsBottom

    CardHead {
        id: head

        width: parent.width
        title: card.presenter.topTitle
        detail: card.presenter.topFigures
        trailing: LinkButton {
            objectName: "overview.seeAll"
            text: qsTr("See all")
            onClicked: card.presenter.seeAll()
        }
    }
    NodeMenu {
        id: menu

        objectName: "overviewMenu"
        target: card.presenter.menuTarget
    }
    KeyboardItem {
        id: list

        property int current: 0

        objectName: "overview.topFolders"
        x: Theme.boxPadding
        anchors.top: head.bottom
        width: parent.width - 2 * x
        height: rows.height
        Accessible.role: Accessible.List
        Accessible.name: head.title

        function point(row: int) {
            usePointer();
            current = row;
        }
        function showMenu(row: int, x: real, y: real) {
            if (card.presenter.prepareMenu(row))
                menu.popup(list, x, row * OverviewMetrics.topRowHeight + y);
        }

        ListKeys {
            target: list
            model: card.presenter.topItems
            current: list.current
            onMoved: row => list.current = row
            onOpenWanted: row => card.presenter.openTopItem(row)
            onSelectWanted: row => card.presenter.selectTopItem(row)
            onMenuWanted: row => list.showMenu(row, 0, OverviewMetrics.topRowHeight)
        }
        Column {
            id: rows

            width: parent.width

            Repeater {
                model: card.presenter.topItems

                delegate: TopFolderRow {
                    width: rows.width
                    ringed: index === list.current && list.visualFocus
                    onPressed: list.point(index)
                    onActivated: card.presenter.openTopItem(index)
                    onMenuWanted: (x, y) => list.showMenu(index, x, y)
                }
            }
        }
    }
}
