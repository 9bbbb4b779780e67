import QtQuick
import Corvane.Shell
import Corvane.Window

/// A short message at the bottom. A click dismisses it; it stays while the pointer is over it.
Item {
    id: view

    readonly property bool shown: toast.shown
    readonly property string text: toast.text
    property real rise: shown || Theme.reducedMotion ? 0 : WindowMetrics.toastRise

    function dismiss() {
        toast.dismiss();
    }

    objectName: "toast"
    implicitWidth: Math.min(WindowMetrics.toastWidth, content.implicitWidth + Theme.space12 + Theme.space16)
    implicitHeight: Math.max(WindowMetrics.toastHeight, content.implicitHeight + 2 * Theme.space8)
    opacity: shown ? 1 : 0
    visible: opacity > 0
    enabled: shown
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Accessible.onPressAction: view.dismiss()

    transform: Translate {
        y: view.rise
    }

    Behavior on rise {
        NumberAnimation {
            duration: Theme.motion(Theme.panelDuration)
            easing.type: Easing.OutCubic
        }
    }
    Behavior on opacity {
        NumberAnimation {
            duration: Theme.reducedMotion ? Theme.fastDuration : Theme.baseDuration
            easing.type: Easing.OutCubic
        }
    }

    ToastPresenter {
        id: toast

        hovered: hover.hovered
    }
    HoverHandler {
        id: hover
    }
    // A MouseArea rather than a handler, so that the item below does not receive the click.
    MouseArea {
        anchors.fill: parent
        onClicked: view.dismiss()
    }
    Panel {
        anchors.fill: parent
        color: Theme.toast
        radius: Theme.radiusBox
    }
    ToastContent {
        id: content

        anchors.fill: parent
        anchors.leftMargin: Theme.space12
        anchors.rightMargin: Theme.space16
        text: view.text
        warning: toast.warning
    }
}
