import QtQuick
import Corvane.Shell
import Corvane.Window

/// Shows what dropping the dragged folder on the window would do. Fills its parent.
Item {
    id: indicator

    required property string text

    anchors.fill: parent

    Rectangle {
        anchors.fill: parent
        anchors.margins: WindowMetrics.dropInset
        radius: Theme.radiusBox
        color: Theme.accentSoft
        border.width: Theme.focusRingWidth
        border.color: Theme.accent
    }
    Panel {
        anchors.centerIn: parent
        width: words.implicitWidth + 2 * Theme.space16
        height: WindowMetrics.toastHeight

        PlainText {
            id: words

            anchors.centerIn: parent
            text: indicator.text
            font: Theme.bodySemiboldFont
        }
    }
}
