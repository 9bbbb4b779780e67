import QtQuick
import Corvane.Shell
import Corvane.Apps

/// Shown in place of a section without leftovers.
Item {
    id: row

    required property string title

    implicitHeight: Theme.bodyLine

    PlainText {
        x: Theme.pageMargin
        width: parent.width - 2 * x
        height: parent.height
        text: row.title
        color: Theme.t2
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
