import QtQuick
import Corvane.Disk
import Corvane.Shell

/// A figure and its label in one line.
Row {
    id: line

    required property string figure
    required property string words
    property color color: Theme.t1

    height: DiskMetrics.heroFigureLine
    Accessible.role: Accessible.StaticText
    Accessible.name: figure + words

    PlainText {
        height: line.height
        text: line.figure
        font: Theme.bodySemiboldFiguresFont
        color: line.color
        Accessible.ignored: true
    }
    PlainText {
        height: line.height
        text: line.words
        font: Theme.bodyFiguresFont
        color: line.color
        Accessible.ignored: true
    }
}
