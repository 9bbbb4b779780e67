pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Window

/// The selected entries. Arrow keys move through them, Delete and Backspace drop the one with the focus.
ListView {
    id: list

    /// Whether the list is looked at; nothing is kept in step otherwise.
    required property bool active

    implicitHeight: Math.min(WindowMetrics.reviewListHeight, count * WindowMetrics.reviewRowHeight)
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
        width: list.width
        onDropped: row => entries.drop(row)
    }

    T.ScrollBar.vertical: AppScrollBar {}
}
