pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Disk
import Corvane.Shell

/// One row for each part of the disk, in a box.
Rectangle {
    id: list

    required property BreakdownPresenter presenter
    /// The id of the highlighted part.
    required property string current

    signal pointedAt(id: string)

    /// The row of that part, or null.
    function row(id: string): Item {
        for (let i = 0; i < repeater.count; ++i) {
            const item = repeater.itemAt(i) as SegmentRow;
            if (item.segmentId === id)
                return item;
        }
        return null;
    }

    implicitHeight: rows.height + 2 * Theme.hairlineWidth
    radius: Theme.radiusBox
    color: Theme.surface
    border.width: Theme.hairlineWidth
    border.color: Theme.hairline
    visible: repeater.count > 0
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Parts of the disk")

    Column {
        id: rows

        x: Theme.hairlineWidth
        y: Theme.hairlineWidth
        width: parent.width - 2 * Theme.hairlineWidth

        Repeater {
            id: repeater

            model: list.presenter.segments

            SegmentRow {
                id: row

                width: rows.width
                isFirst: index === 0
                isLast: index === repeater.count - 1
                highlighted: segmentId === list.current
                canScan: list.presenter.canScan
                onPointedAt: inside => list.pointedAt(inside ? segmentId : highlighted ? "" : list.current)
                onActionWanted: list.presenter.perform(row.index)
            }
        }
    }
}
