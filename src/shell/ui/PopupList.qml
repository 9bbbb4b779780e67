import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// The choices of a popup button.
T.Popup {
    id: list

    property alias model: rows.model
    property alias currentIndex: rows.currentIndex
    /// The width that a row needs in addition to its text.
    readonly property real rowRoom: leftPadding + rightPadding + 2 * Theme.space10 + Theme.checkIconSize + Theme.space6

    height: Math.min(implicitHeight, Theme.popupMaximumHeight)
    implicitHeight: rows.contentHeight + topPadding + bottomPadding
    padding: Theme.menuPadding
    margins: Theme.space6
    background: Panel {}

    ListView {
        id: rows

        anchors.fill: parent
        clip: true
        highlightMoveDuration: 0
        T.ScrollBar.vertical: AppScrollBar {}
    }
}
