pragma ComponentBehavior: Bound

import QtQuick
import Qt.labs.qmlmodels
import Corvane.Shell
import Corvane.Cleanup

/// The catalogue in its groups, the build folders, and commands to copy. Left and Right collapse and expand a card.
AppList {
    id: list

    required property string title

    Accessible.name: title

    Keys.onRightPressed: contents.setExpanded(currentIndex, true)
    Keys.onLeftPressed: {
        goTo(contents.cardRow(currentIndex));
        contents.setExpanded(currentIndex, false);
    }

    function showMenu(row: int, x: real, y: real) {
        if (contents.prepareMenu(row))
            menu.popup(itemAt(row), x, y);
    }

    // Start at the first card, because row 0 is a header.
    currentIndex: 1
    rowHeight: CleanupMetrics.cardHeight
    view.objectName: "cleanupRows"
    // Rows outside the viewport would be incubated asynchronously, which logs an error if the window closes meanwhile.
    view.cacheBuffer: 0
    view.topMargin: CleanupMetrics.listMargin
    view.bottomMargin: Theme.pageMargin
    keys.onOpenWanted: row => contents.open(row)
    keys.onToggleWanted: row => contents.toggle(row)
    keys.onSelectWanted: row => contents.select(row)
    keys.onSelectAllWanted: contents.selectAll()
    keys.onMenuWanted: row => list.showMenu(row, Theme.pageMargin, CleanupMetrics.entryHeight)

    NodeMenu {
        id: menu

        objectName: "cleanupMenu"
        target: contents.menuTarget
    }
    model: CleanupListModel {
        id: contents
    }
    delegate: DelegateChooser {
        role: "kind"

        DelegateChoice {
            roleValue: "header"

            GroupHeader {
                width: list.width
            }
        }
        DelegateChoice {
            roleValue: "card"

            CleanupCard {
                required property int index

                width: list.width
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
                onToggleWanted: contents.toggle(index)
            }
        }
        DelegateChoice {
            roleValue: "entry"

            EntryRow {
                required property int index
                required property real opening

                width: list.width
                part: opening
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.open(index)
                onToggleWanted: contents.toggle(index)
                onMenuWanted: (x, y) => list.showMenu(index, x, y)
            }
        }
        DelegateChoice {
            roleValue: "more"

            MoreRow {
                required property real opening

                width: list.width
                part: opening
            }
        }
        DelegateChoice {
            roleValue: "missing"

            MoreRow {
                required property real opening

                width: list.width
                part: opening
            }
        }
        DelegateChoice {
            roleValue: "reveal"

            RevealRow {
                required property int index
                required property real opening

                width: list.width
                part: opening
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "prompt"

            ScanPromptRow {
                required property int index

                width: list.width
                buttonName: "cleanup.scanHome"
                ringed: ListView.isCurrentItem && list.visualFocus
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "partial"

            ScanPromptRow {
                required property int index

                width: list.width
                buttonName: "cleanup.scanAgain"
                ringed: ListView.isCurrentItem && list.visualFocus
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "none"

            NoArtifactsRow {
                width: list.width
            }
        }
        DelegateChoice {
            roleValue: "folded"

            FoldedRow {
                required property int index

                width: list.width
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "command"

            CommandRow {
                required property int index

                width: list.width
                clipboard: contents.clipboard
                ringed: ListView.isCurrentItem && list.visualFocus
                onPressed: list.point(index)
                onActivated: contents.activate(index)
            }
        }
        DelegateChoice {
            roleValue: "artifact"

            ArtifactRow {
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
