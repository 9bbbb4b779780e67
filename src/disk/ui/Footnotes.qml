pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell

/// Notes on the figures above.
Column {
    id: footnotes

    required property list<string> notes

    spacing: Theme.space6

    Repeater {
        model: footnotes.notes

        Item {
            id: note

            required property string modelData

            width: footnotes.width
            height: words.height
            Accessible.role: Accessible.StaticText
            Accessible.name: modelData

            Icon {
                id: symbol

                x: Theme.space4
                y: (Theme.secondaryLine - height) / 2
                symbol: "info.circle"
                size: Theme.buttonIconSize
                color: Theme.t3
            }
            PlainText {
                id: words

                anchors.left: symbol.right
                anchors.right: parent.right
                anchors.leftMargin: Theme.space8
                anchors.rightMargin: Theme.space4
                text: note.modelData
                font: Theme.secondaryFont
                color: Theme.t2
                wrapMode: Text.Wrap
                elide: Text.ElideNone
                lineHeightMode: Text.FixedHeight
                lineHeight: Theme.secondaryLine
                Accessible.ignored: true
            }
        }
    }
}
