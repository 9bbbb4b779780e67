import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A page taller than its viewport: scrolls by wheel, by touch and by the keys of whichever item on it has the focus.
Flickable {
    id: page

    /// Scrolls an item of the page into view.
    function reveal(item: Item) {
        scroller.reveal(item);
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true

    T.ScrollBar.vertical: AppScrollBar {}
    Keys.onPressed: event => event.accepted = scroller.scroll(event.key, event.modifiers)

    PageScroller {
        id: scroller

        page: page
    }
}
