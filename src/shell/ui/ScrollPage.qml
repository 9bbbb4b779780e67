import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Corvane.Shell

/// A page taller than its viewport: scrolls by wheel, by touch and by the keys of whichever item on it has the focus.
Flickable {
    id: page

    /// The focused item of the window, on this page or elsewhere.
    readonly property Item focused: Window.activeFocusItem

    /// Scrolls an item of the page into view.
    function reveal(item: Item) {
        scroller.reveal(item);
    }

    // An item that was clicked is visible already, and must not move away from the pointer.
    onFocusedChanged: {
        if ((focused as T.Control)?.visualFocus || (focused as KeyboardItem)?.visualFocus)
            scroller.reveal(focused);
    }
    boundsBehavior: Flickable.StopAtBounds
    clip: true

    T.ScrollBar.vertical: AppScrollBar {}
    Keys.onPressed: event => event.accepted = scroller.scroll(event.key, event.modifiers)

    PageScroller {
        id: scroller

        page: page
        contentY: page.contentY
        contentHeight: page.contentHeight
        onMoved: y => page.contentY = y
    }
}
