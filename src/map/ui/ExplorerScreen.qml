import QtQuick
import Corvane.Shell
import Corvane.Map

/// The Space Map: the path of the current folder, its map, and the list of its contents.
Item {
    id: screen

    /// The window's own commands, shown on the right of the band.
    property alias toolbar: band.commands
    /// The height of the screen that the selection bar covers, at its bottom.
    property real coveredHeight: 0
    readonly property bool wide: width >= Theme.wideContentWidth

    ExplorerPresenter {
        id: presenter
    }
    Shortcut {
        sequence: "Ctrl+Up"
        enabled: screen.visible && presenter.canGoUp
        onActivated: presenter.goUp()
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.surface
    }
    BreadcrumbBar {
        id: band

        width: parent.width
        presenter: presenter
    }
    Item {
        id: mapPlace

        anchors.left: parent.left
        anchors.right: rule.left
        anchors.top: band.bottom
        anchors.bottom: parent.bottom

        TreemapView {
            id: map

            objectName: "map"
            anchors.fill: parent
            anchors.margins: Theme.mapMargin
            anchors.rightMargin: Theme.mapListGap
            visible: !presenter.empty
            highlightedRow: list.hoveredRow
            coveredHeight: screen.coveredHeight

            Accessible.role: Accessible.List
            Accessible.name: presenter.mapName

            onMenuRequested: position => menu.popup(map, position.x, position.y)
        }
        EmptyStateView {
            objectName: "emptyMap"
            anchors.fill: parent
            anchors.bottomMargin: screen.coveredHeight
            symbol: presenter.emptySymbol
            title: presenter.emptyTitle
            message: presenter.emptyText
            visible: presenter.empty
        }
        NodeMenu {
            id: menu

            objectName: "tileMenu"
            target: map.menuTarget
        }
    }
    Rectangle {
        id: rule

        anchors.right: list.left
        anchors.top: band.bottom
        anchors.bottom: parent.bottom
        width: Theme.hairlineWidth
        color: Theme.hairline
    }
    FolderContentsList {
        id: list

        objectName: "list"
        anchors.right: parent.right
        anchors.top: band.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: screen.coveredHeight
        width: (screen.wide ? Theme.mapListWidth : Theme.mapListWidthNarrow) - Theme.hairlineWidth
        presenter: presenter
        markedRow: map.hoveredRow
        wide: screen.wide
    }
    TileInfoPill {
        id: pill

        objectName: "pill"
        parent: map
        map: map
    }
}
