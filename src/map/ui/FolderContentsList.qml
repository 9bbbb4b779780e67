pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Map

/// The contents of the current folder, largest first.
AppList {
    id: list

    required property ExplorerPresenter presenter
    /// The row of the tile under the pointer, or -1.
    property int markedRow: -1
    /// Whether there is room for the total size of the small files.
    property bool wide: true
    /// The row under the pointer, or -1.
    property int hoveredRow: -1

    Accessible.name: presenter.folderName
    Keys.onEscapePressed: list.presenter.goUp()

    function showMenu(row: int, x: real, y: real) {
        if (contents.prepareMenu(row))
            menu.popup(itemAt(row), x, y);
    }

    rowHeight: Theme.nodeRowHeight
    headHeight: header.height
    view.objectName: "contents"
    view.reuseItems: true
    view.highlightFollowsCurrentItem: true
    view.topMargin: Theme.space4
    view.bottomMargin: Theme.space4
    keys.onOpenWanted: row => contents.open(row)
    keys.onToggleWanted: row => contents.toggle(row)
    keys.onSelectWanted: row => contents.select(row)
    keys.onSelectAllWanted: contents.selectAll()
    keys.onUpWanted: list.presenter.goUp()
    keys.onMenuWanted: row => list.showMenu(row, Theme.space14, Theme.nodeRowHeight)

    model: FolderContentsModel {
        id: contents

        onFolderShown: row => list.goTo(row)
    }
    delegate: NodeRow {
        width: list.width
        marked: index === list.markedRow
        ringed: ListView.isCurrentItem && list.visualFocus
        wide: list.wide
        onHoveredChanged: list.hoveredRow = hovered ? index : list.hoveredRow === index ? -1 : list.hoveredRow
        onPressed: list.point(index)
        onClicked: contents.click(index)
        onDoubleClicked: contents.doubleClick(index)
        onOpenWanted: contents.open(index)
        onToggleWanted: contents.toggle(index)
        onMenuWanted: (x, y) => list.showMenu(index, x, y)
    }

    NodeMenu {
        id: menu

        objectName: "rowMenu"
        target: contents.menuTarget
    }
    Rectangle {
        id: header

        width: parent.width
        height: MapMetrics.listHeaderHeight
        color: Theme.surface

        PlainText {
            anchors.left: parent.left
            anchors.right: folderSize.left
            anchors.leftMargin: Theme.space14
            anchors.rightMargin: Theme.space8
            height: parent.height - Theme.hairlineWidth
            text: list.presenter.folderName
            font: Theme.bodySemiboldFont
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            id: folderSize

            anchors.right: parent.right
            anchors.rightMargin: Theme.space14
            height: parent.height - Theme.hairlineWidth
            text: list.presenter.folderSize
            font: Theme.bodyFiguresFont
            color: Theme.t2
            elide: Text.ElideNone
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline
        }
    }
}
