import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A page higher than its place: scrolls by wheel, by touch and by the keys of whatever on it has the focus.
Flickable {
    id: page

    /// Brings an item of the page into sight.
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
