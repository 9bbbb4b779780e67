import QtQuick
import Corvane.Shell
import Corvane.Window

/// A large figure of the running scan above its label. Reserves the width of large values, so that a growing one does
/// not move the next.
Item {
    id: figure

    required property string title
    required property string value

    implicitWidth: Math.max(WindowMetrics.progressFigureWidth, number.implicitWidth + Theme.space24)
    implicitHeight: Theme.figureLine + Theme.secondaryLine
    Accessible.role: Accessible.StaticText
    Accessible.name: title
    Accessible.description: value

    PlainText {
        id: number

        height: Theme.figureLine
        text: figure.value
        font: Theme.figureFont
        Accessible.ignored: true
    }
    PlainText {
        anchors.top: number.bottom
        height: Theme.secondaryLine
        text: figure.title
        font: Theme.secondaryFont
        color: Theme.t2
        Accessible.ignored: true
    }
}
