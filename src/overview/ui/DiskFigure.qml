import QtQuick
import Corvane.Shell

/// A large figure followed by its label.
Item {
    id: figure

    required property string value
    required property string name

    implicitWidth: number.implicitWidth + Theme.space6 + words.implicitWidth
    implicitHeight: Theme.figureLine
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ": " + value

    PlainText {
        id: number

        height: parent.height
        text: figure.value
        font: Theme.figureFont
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    PlainText {
        id: words

        anchors.left: number.right
        anchors.leftMargin: Theme.space6
        anchors.baseline: number.baseline
        text: figure.name
        color: Theme.t2
        elide: Text.ElideNone
        Accessible.ignored: true
    }
}
