import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A tool tip for the control under the pointer, or for the one that the keyboard has led to.
T.ToolTip {
    id: tip

    /// Whether the pointer is over the control. A key press hides the tip until the pointer is used again.
    property bool pointed: false
    /// Whether the control shows the keyboard focus.
    property bool focused: false

    readonly property real textWidth: Theme.tipMaximumWidth - leftPadding - rightPadding

    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + Theme.space6 : 0
    implicitWidth: Math.min(Theme.tipMaximumWidth, metrics.advanceWidth + leftPadding + rightPadding + 1)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Theme.space8
    verticalPadding: Theme.space4
    margins: Theme.space6
    delay: Theme.tipDelayDuration
    visible: text !== "" && (focused || pointed && PointerUse.active)
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent

    TextMetrics {
        id: metrics

        font: Theme.secondaryFont
        text: tip.text
    }

    contentItem: PlainText {
        text: tip.text
        font: Theme.secondaryFont
        wrapMode: Text.Wrap
        elide: Text.ElideNone
    }
    background: Panel {
        radius: Theme.radiusControl
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.fastDuration
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.fastDuration
        }
    }
}
