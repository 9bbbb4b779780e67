import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// One choice of a popup button.
T.ItemDelegate {
    id: row

    required property int index
    property bool marked: false

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.menuRowHeight
    horizontalPadding: Theme.space10
    hoverEnabled: true
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.selected: marked
    Accessible.onPressAction: row.clicked()

    contentItem: MenuRow {
        text: row.text
        markable: true
        marked: row.marked
        highlighted: row.highlighted
    }
    background: MenuHighlight {
        highlighted: row.highlighted
    }
}
