pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Qt.labs.qmlmodels
import Corvane.Shell
import Corvane.Cleanup

/// The catalogue in its groups, and the build folders. One stop for Tab; the arrow keys move in it.
KeyboardItem {
    id: list

    required property string title

    Accessible.role: Accessible.List
    Accessible.name: title

    Keys.onRightPressed: contents.setExpanded(view.currentIndex, true)
    Keys.onLeftPressed: {
        goTo(contents.cardRow(view.currentIndex));
        contents.setExpanded(view.currentIndex, false);
    }

    function goTo(row: int) {
        view.currentIndex = row;
        view.positionViewAtIndex(row, ListView.Contain);
        // The ends with their margins, and with the header above the first row that can be used.
        if (row === keys.firstRow())
            view.contentY = view.originY - view.topMargin;
        else if (row === keys.lastRow() && view.contentHeight > view.height)
            view.contentY = view.originY + view.contentHeight + view.bottomMargin - view.height;
    }

    function point(row: int) {
        usePointer();
        view.currentIndex = row;
    }

    function showMenu(row: int) {
        if (contents.prepareMenu(row))
            menu.popup(view.itemAtIndex(row), Theme.pageMargin, CleanupMetrics.entryHeight);
    }

    CleanupListModel {
        id: contents

        store: Store
    }
    ListKeys {
        id: keys

        target: list
        model: contents
        current: view.currentIndex
        page: Math.floor(view.height / CleanupMetrics.cardHeight)
        onMoved: row => list.goTo(row)
        onOpenWanted: row => contents.open(row)
        onToggleWanted: row => contents.toggle(row)
        onSelectWanted: row => contents.select(row)
        onSelectAllWanted: contents.selectAll()
        onMenuWanted: row => list.showMenu(row)
    }
    NodeMenu {
        id: menu

        objectName: "cleanupMenu"
        target: contents.menuTarget
    }

    ListView {
        id: view

        objectName: "cleanupRows"
        anchors.fill: parent
        model: contents
        // A header does nothing; the keyboard begins at the first card.
        currentIndex: 1
        highlightFollowsCurrentItem: false
        // Rows that are made ahead are made bit by bit, and a window that closes meanwhile would say so.
        cacheBuffer: 0
        clip: true
        topMargin: CleanupMetrics.listMargin
        bottomMargin: Theme.pageMargin
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: false
        T.ScrollBar.vertical: AppScrollBar {}

        delegate: DelegateChooser {
            role: "kind"

            DelegateChoice {
                roleValue: "header"

                GroupHeader {
                    width: view.width
                }
            }
            DelegateChoice {
                roleValue: "card"

                CleanupCard {
                    required property int index

                    width: view.width
                    ringed: ListView.isCurrentItem && list.visualFocus
                    onPressed: list.point(index)
                    onActivated: contents.activate(index)
                    onToggleWanted: contents.toggle(index)
                }
            }
            DelegateChoice {
                roleValue: "entry"

                EntryRow {
                    id: entry

                    required property int index
                    required property real opening

                    width: view.width
                    part: opening
                    ringed: ListView.isCurrentItem && list.visualFocus
                    onPressed: list.point(index)
                    onActivated: contents.open(index)
                    onToggleWanted: contents.toggle(index)
                    onMenuWanted: (x, y) => {
                        if (contents.prepareMenu(entry.index))
                            menu.popup(entry, x, y);
                    }
                }
            }
            DelegateChoice {
                roleValue: "more"

                MoreRow {
                    required property real opening

                    width: view.width
                    part: opening
                }
            }
            DelegateChoice {
                roleValue: "missing"

                MoreRow {
                    required property real opening

                    width: view.width
                    part: opening
                }
            }
            DelegateChoice {
                roleValue: "reveal"

                RevealRow {
                    required property int index
                    required property real opening

                    width: view.width
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

                    width: view.width
                    buttonName: "cleanup.scanHome"
                    ringed: ListView.isCurrentItem && list.visualFocus
                    onActivated: contents.activate(index)
                }
            }
            DelegateChoice {
                roleValue: "partial"

                ScanPromptRow {
                    required property int index

                    width: view.width
                    buttonName: "cleanup.scanAgain"
                    ringed: ListView.isCurrentItem && list.visualFocus
                    onActivated: contents.activate(index)
                }
            }
            DelegateChoice {
                roleValue: "none"

                NoArtifactsRow {
                    width: view.width
                }
            }
            DelegateChoice {
                roleValue: "artifact"

                ArtifactRow {
                    id: artifact

                    required property int index

                    width: view.width
                    revealText: contents.menuTarget.revealText
                    ringed: ListView.isCurrentItem && list.visualFocus
                    onPressed: list.point(index)
                    onActivated: contents.activate(index)
                    onToggleWanted: contents.toggle(index)
                    onRevealWanted: contents.reveal(index)
                    onMenuWanted: (x, y) => {
                        if (contents.prepareMenu(artifact.index))
                            menu.popup(artifact, x, y);
                    }
                }
            }
        }
    }
}
