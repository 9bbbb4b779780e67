pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Window

/// The selected entries. Delete and Backspace deselect the current one.
AppList {
    id: list

    /// Whether the sheet is open; the rows are not updated otherwise.
    required property bool active

    /// How many rows to leave room for: those at opening, so that nothing moves under the pointer while entries are
    /// deselected.
    property int rowsAtFirst: 0

    onActiveChanged: if (!active) rowsAtFirst = 0

    implicitHeight: Math.min(WindowMetrics.reviewListHeight, rowsAtFirst * rowHeight)
    Accessible.name: qsTr("Selected items")
    // The current row itself has the focus, so that screen readers announce it.
    activeFocusOnTab: false
    view.activeFocusOnTab: true

    /// `x` and `y` are relative to the row.
    function showMenu(row: int, x: real, y: real) {
        currentIndex = row;
        menu.popup(itemAt(row), x, y);
    }

    rowHeight: WindowMetrics.reviewRowHeight
    view.objectName: "reviewSheet.list"
    view.highlightFollowsCurrentItem: true
    view.highlightMoveDuration: 0
    keys.onSelectWanted: row => entries.drop(row)
    keys.onUpWanted: entries.drop(list.currentIndex)
    keys.onMenuWanted: row => list.showMenu(row, Theme.space20, list.rowHeight)

    model: SelectionReviewModel {
        id: entries

        active: list.active
        // The view does not report a count that is the same at the next opening as before.
        onCountChanged: if (list.rowsAtFirst === 0) list.rowsAtFirst = count
    }
    delegate: ReviewRow {
        width: list.width
        highlighted: ListView.isCurrentItem && list.view.activeFocus
        onDropped: row => entries.drop(row)
        onDoubleClicked: entries.open(index)
        onMenuWanted: (x, y) => list.showMenu(index, x, y)
    }

    AppMenu {
        id: menu

        objectName: "reviewSheet.menu"

        AppMenuItem {
            text: qsTr("Open")
            onTriggered: entries.open(list.currentIndex)
        }
        AppMenuItem {
            text: SystemTexts.reveal
            onTriggered: entries.reveal(list.currentIndex)
        }
    }
}
