import QtQuick
import Corvane.Shell
import Corvane.Services

/// One line of the form: a label and its field.
Item {
    id: line

    default property alias field: holder.data
    property string label
    property int labelHeight: Theme.controlHeight

    implicitHeight: holder.height

    PlainText {
        width: ServicesMetrics.feedbackLabelWidth
        height: line.labelHeight
        text: line.label
        color: Theme.t2
        horizontalAlignment: Text.AlignRight
    }
    Item {
        id: holder

        x: ServicesMetrics.feedbackLabelWidth + Theme.space12
        width: line.width - x
        height: childrenRect.height
    }
}
