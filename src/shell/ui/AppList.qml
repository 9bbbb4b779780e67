import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A list: one stop for Tab, in which the arrows, Home and End and the page keys move and typing finds. What the other
/// keys do the screen says, as in `keys.onOpenWanted: row => model.open(row)`; `ListKeys` has them all.
KeyboardItem {
    id: list

    /// A QAbstractItemModel; rows that are not enabled are no stops of the keyboard.
    property alias model: keys.model
    property alias delegate: view.delegate
    /// The row that the keyboard is at. A delegate has its ring where it is this one and `visualFocus` is true.
    property alias currentIndex: view.currentIndex
    property alias keys: keys
    property alias view: view
    /// Of most rows: the page keys move by as many as are seen.
    required property real rowHeight
    /// What is left free above the rows.
    property real headHeight: 0

    /// Makes a row the current one and brings it into sight.
    function goTo(row: int) {
        view.currentIndex = row;
        view.positionViewAtIndex(row, ListView.Contain);
        // The ends with their margins, and with what stands before the first row that can be used.
        if (row === keys.firstRow())
            view.contentY = view.originY - view.topMargin;
        else if (row === keys.lastRow() && view.contentHeight > view.height)
            view.contentY = view.originY + view.contentHeight + view.bottomMargin - view.height;
    }
    /// What a press of the pointer on a row does.
    function point(row: int) {
        usePointer();
        view.currentIndex = row;
    }
    function itemAt(row: int): Item {
        return view.itemAtIndex(row);
    }

    Accessible.role: Accessible.List

    ListKeys {
        id: keys

        target: list
        current: view.currentIndex
        // A list that is as high as its rows leaves the page keys to the page that it stands on.
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
