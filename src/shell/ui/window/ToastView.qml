import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Window

/// A short message at the bottom. A click puts it away; while the pointer rests on it, it stays.
T.AbstractButton {
    id: view

    readonly property bool shown: toast.shown
    property real rise: shown || Theme.reducedMotion ? 0 : WindowMetrics.toastRise

    function dismiss() {
        toast.dismiss();
    }

    objectName: "toast"
    leftPadding: Theme.space12
    rightPadding: Theme.space16
    implicitWidth: Math.min(WindowMetrics.toastWidth, implicitContentWidth + leftPadding + rightPadding)
    implicitHeight: Math.max(WindowMetrics.toastHeight, implicitContentHeight + 2 * Theme.space8)
    focusPolicy: Qt.NoFocus
    text: toast.text
    opacity: shown ? 1 : 0
    visible: opacity > 0
    enabled: shown
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Accessible.onPressAction: view.dismiss()
    onClicked: dismiss()

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

        store: Store
        stayDuration: Theme.toastStayDuration
        stayWarningDuration: Theme.toastStayWarningDuration
        hovered: view.hovered
    }

    background: Panel {
        color: Theme.toast
        radius: Theme.radiusBox
    }
    contentItem: ToastContent {
        text: view.text
        warning: toast.warning
    }
}
