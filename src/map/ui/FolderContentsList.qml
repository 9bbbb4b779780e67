pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Map

/// What the folder shown holds, largest first.
KeyboardItem {
    id: list

    required property ExplorerPresenter presenter
    /// The row whose tile lies under the pointer, or -1.
    property int markedRow: -1
    /// Wide enough for the size of the small files.
    property bool wide: true
    /// The row under the pointer, or -1.
    property int hoveredRow: -1

    Accessible.role: Accessible.List
    Accessible.name: presenter.folderName

    Keys.onEscapePressed: list.presenter.goUp()

    function goTo(row: int) {
        view.currentIndex = row;
        view.positionViewAtIndex(row, ListView.Contain);
    }

    function point(row: int) {
        usePointer();
        view.currentIndex = row;
    }

    function showMenu(row: int) {
        if (contents.prepareMenu(row))
            menu.popup(view.itemAtIndex(row), Theme.space14, Theme.nodeRowHeight);
    }

    FolderContentsModel {
        id: contents

        store: list.presenter.store
        onFolderShown: row => list.goTo(row)
    }
    ListKeys {
        target: list
        model: contents
        current: view.currentIndex
        page: Math.floor(view.height / Theme.nodeRowHeight)
        onMoved: row => list.goTo(row)
        onOpenWanted: row => contents.open(row)
        onToggleWanted: row => contents.toggle(row)
        onSelectWanted: row => contents.select(row)
        onSelectAllWanted: contents.selectAll()
        onUpWanted: list.presenter.goUp()
        onMenuWanted: row => list.showMenu(row)
    }
    NodeMenu {
        id: menu

        objectName: "rowMenu"
        target: contents.menuTarget
    }

    ListView {
        id: view

        objectName: "contents"
        anchors.fill: parent
        anchors.topMargin: header.height
        model: contents
        clip: true
        reuseItems: true
        topMargin: Theme.space4
        bottomMargin: Theme.space4
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: false
        T.ScrollBar.vertical: AppScrollBar {}

        delegate: NodeRow {
            id: row

            width: view.width
            marked: index === list.markedRow
            ringed: ListView.isCurrentItem && list.visualFocus
            wide: list.wide
            onHoveredChanged: list.hoveredRow = hovered ? index : list.hoveredRow === index ? -1 : list.hoveredRow
            onPressed: list.point(index)
            onClicked: contents.click(index)
            onDoubleClicked: contents.doubleClick(index)
            onOpenWanted: contents.open(index)
            onToggleWanted: contents.toggle(index)
            onMenuWanted: (x, y) => {
                if (contents.prepareMenu(row.index))
                    menu.popup(row, x, y);
            }
        }
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
