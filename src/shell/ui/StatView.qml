import QtQuick
import Corvane.Shell

/// A figure above its title. Several share one box, each but the first with a line on its left.
Item {
    id: stat

    required property string value
    required property string title
    property bool ruled: false

    implicitWidth: Math.max(figure.implicitWidth, caption.implicitWidth) + 2 * Theme.boxPadding
    implicitHeight: figure.height + caption.height + 2 * Theme.space12
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ": " + value

    Rectangle {
        width: Theme.hairlineWidth
        height: parent.height
        color: Theme.hairline2
        visible: stat.ruled
    }
    PlainText {
        id: figure

        x: Theme.boxPadding
        y: Theme.space12
        width: stat.width - 2 * Theme.boxPadding
        height: Theme.statLine
        text: stat.value
        font: Theme.statFont
        Accessible.ignored: true
    }
    PlainText {
        id: caption

        x: Theme.boxPadding
        anchors.top: figure.bottom
        width: figure.width
        height: Theme.secondaryLine
        text: stat.title
        font: Theme.secondaryFont
        color: Theme.t2
        Accessible.ignored: true
    }
}
