import QtQuick
import Corvane.Shell
import Corvane.Lists

/// One filter of a list: its label and its choices.
Row {
    id: choice

    required property string label
    required property int choiceWidth
    property alias choices: button.model
    property alias chosen: button.currentIndex
    /// The object name of the button.
    property alias buttonName: button.objectName

    signal activated(int index)

    spacing: ListsMetrics.labelGap

    PlainText {
        height: parent.height
        text: choice.label
        font: Theme.secondaryFont
        color: Theme.t2
        elide: Text.ElideNone
        Accessible.ignored: true
    }
    PopupButton {
        id: button

        width: choice.choiceWidth
        accessibleName: choice.label
        onActivated: index => choice.activated(index)
    }
}
