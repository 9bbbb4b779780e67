import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A list that is a single Tab stop: the arrows, Home, End and the page keys move, and typing searches. The screen
/// handles the other keys, as in `keys.onOpenWanted: row => model.open(row)`; see `ListKeys`.
KeyboardItem {
    id: list

    /// A QAbstractItemModel; the keyboard skips rows that are not enabled.
    property alias model: keys.model
    property alias delegate: view.delegate
    /// The row that the keyboard is on. A delegate draws its focus ring if it is this row and `visualFocus` is true.
    property alias currentIndex: view.currentIndex
    property alias keys: keys
    property alias view: view
    /// The height of most rows; the page keys move by the number of visible rows.
    required property real rowHeight
    /// The height left free above the rows.
    property real headHeight: 0

    /// Makes a row current and scrolls it into view.
    function goTo(row: int) {
        view.currentIndex = row;
        view.positionViewAtIndex(row, ListView.Contain);
        // Scroll all the way at either end, including the margins and anything before the first enabled row.
        if (row === keys.firstRow())
            view.contentY = view.originY - view.topMargin;
        else if (row === keys.lastRow() && view.contentHeight > view.height)
            view.contentY = view.originY + view.contentHeight + view.bottomMargin - view.height;
    }
    /// Handles a mouse press on a row.
    function point(row: int) {
        usePointer();
        view.currentIndex = row;
    }
    function itemAt(row: int): Item {
        return view.itemAtIndex(row);
    }

    Accessible.role: Accessible.List

    // A view whose first current row is not row 0 starts without its top margin.
    Component.onCompleted: view.contentY = view.originY - view.topMargin

    ListKeys {
        id: keys

        target: list
        current: view.currentIndex
        // A list as tall as its content does not scroll, so the page keys belong to the page around it.
        page: view.interactive ? Math.floor(view.height / list.rowHeight) : 0
        onMoved: row => list.goTo(row)
    }
    ListView {
        id: view

        anchors.fill: parent
        anchors.topMargin: list.headHeight
        model: keys.model
        clip: interactive
        highlightFollowsCurrentItem: false
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: false
        keyNavigationEnabled: false
        T.ScrollBar.vertical: AppScrollBar {}
    }
}
