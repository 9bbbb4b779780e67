pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Overview

/// The biggest items of the scanned folder; a press shows one in the Space Map.
OverviewBox {
    id: card

    required property OverviewPresenter presenter

    contentHeight: (empty.visible ? head.height + empty.height + 2 * Theme.space16 : list.y + list.height)
        + OverviewMetrics.rowsBottom

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
    CardMessage {
        id: empty

        objectName: "overview.noTopItems"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.boxPadding
        y: head.height + Math.round((parent.height - head.height - height) / 2)
        visible: title !== ""
        symbol: card.presenter.emptySymbol
        tint: Theme.t2
        title: card.presenter.noTopItemsText
    }
    NodeMenu {
        id: menu

        objectName: "overviewMenu"
        target: card.presenter.menuTarget
    }
    AppList {
        id: list

        objectName: "overview.topFolders"
        x: Theme.boxPadding
        anchors.top: head.bottom
        width: parent.width - 2 * x
        height: view.count * rowHeight
        Accessible.name: head.title

        function showMenu(row: int, x: real, y: real) {
            if (card.presenter.prepareMenu(row))
                menu.popup(itemAt(row), x, y);
        }

        rowHeight: OverviewMetrics.topRowHeight
        view.interactive: false
        keys.onOpenWanted: row => card.presenter.openTopItem(row)
        keys.onSelectWanted: row => card.presenter.selectTopItem(row)
        keys.onMenuWanted: row => list.showMenu(row, 0, list.rowHeight)

        model: card.presenter.topItems
        delegate: TopFolderRow {
            width: list.width
            ringed: ListView.isCurrentItem && list.visualFocus
            onPressed: list.point(index)
            onActivated: card.presenter.openTopItem(index)
            onMenuWanted: (x, y) => list.showMenu(index, x, y)
        }
    }
}
