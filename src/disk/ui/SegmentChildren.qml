pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Disk
import Corvane.Shell

/// The largest items of a part in a row that wraps.
Flow {
    id: items

    required property list<namedSizeText> largestItems
    /// After every item, including the last of a line.
    readonly property int gap: Theme.space12

    spacing: Theme.space2

    Repeater {
        model: items.largestItems

        Row {
            id: item

            required property namedSizeText modelData

            spacing: Theme.space4
            rightPadding: items.gap
            Accessible.role: Accessible.StaticText
            Accessible.name: modelData.name + " " + modelData.size

            PlainText {
                height: Theme.secondaryLine
                width: Math.min(implicitWidth, items.width / 2)
                text: item.modelData.name
                font: Theme.secondaryFont
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            PlainText {
                height: Theme.secondaryLine
                text: item.modelData.size
                font: Theme.secondaryFiguresFont
                color: Theme.t3
                elide: Text.ElideNone
                Accessible.ignored: true
            }
        }
    }
}
