import QtQuick
import Corvane.Shell

/// One line of text, taken literally: names of files may look like markup.
Text {
    textFormat: Text.PlainText
    color: Theme.t1
    font: Theme.bodyFont
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
}
