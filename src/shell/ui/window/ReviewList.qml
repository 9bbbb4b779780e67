pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Window

/// The selected entries. Arrow keys and typing move through them, Delete and Backspace drop the one with the focus.
ListView {
    id: list

    /// Whether the list is looked at; nothing is kept in step otherwise.
    required property bool active

    /// How many rows there is room for: those of the opening, so that what lies under the pointer stays there
    /// while rows are dropped.
    property int rowsAtFirst: 0

    onCountChanged: if (rowsAtFirst === 0) rowsAtFirst = count
    onActiveChanged: if (!active) rowsAtFirst = 0

    implicitHeight: Math.min(WindowMetrics.reviewListHeight, rowsAtFirst * WindowMetrics.reviewRowHeight)
    objectName: "reviewSheet.list"
    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Selected items")
    Keys.onDeletePressed: entries.drop(list.currentIndex)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return;
        entries.drop(list.currentIndex);
        event.accepted = true;
    }

    model: SelectionReviewModel {
        id: entries

        store: list.active ? Store : null
    }
    delegate: ReviewRow {
        id: row

        width: list.width
        onDropped: row => entries.drop(row)
        onDoubleClicked: entries.open(index)
        onMenuWanted: (x, y) => list.showMenu(row, x, y)
    }

    /// At a point of a row.
    function showMenu(row: ReviewRow, x: real, y: real) {
        list.currentIndex = row.index;
        menu.popup(row, x, y);
    }

    ListKeys {
        target: list
        model: entries
        current: list.currentIndex
        page: Math.floor(list.height / WindowMetrics.reviewRowHeight)
        onMoved: row => list.currentIndex = row
        onMenuWanted: list.showMenu(list.currentItem as ReviewRow, Theme.space20, WindowMetrics.reviewRowHeight)
    }
    AppMenu {
        id: menu

        objectName: "reviewSheet.menu"

        AppMenuItem {
            text: qsTr("Open")
            onTriggered: entries.open(list.currentIndex)
        }
        AppMenuItem {
            text: entries.revealText
            onTriggered: entries.reveal(list.currentIndex)
        }
    }

    T.ScrollBar.vertical: AppScrollBar {}
}
