import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Window

/// One entry that is selected for removal, with a button to deselect it.
T.ItemDelegate {
    id: row

    required property int index
    required property string name
    required property string path
    required property string size
    required property string iconKey
    required property string dropTitle

    signal dropped(row: int)
    signal menuWanted(x: real, y: real)

    implicitHeight: WindowMetrics.reviewRowHeight
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: name + ", " + size
    Accessible.description: path

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: point => row.menuWanted(point.position.x, point.position.y)
    }

    background: Rectangle {
        color: row.highlighted ? Theme.accentRow : row.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)

        Rectangle {
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline2
            visible: row.index > 0
        }
        FocusRing {
            inset: true
            visible: row.highlighted
        }
    }
    contentItem: ReviewRowContent {
        name: row.name
        path: row.path
        size: row.size
        iconKey: row.iconKey
        dropTitle: row.dropTitle
        onDropped: row.dropped(row.index)
    }
}
