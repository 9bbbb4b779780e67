import QtQuick
import Corvane.Shell
import Corvane.Overview

/// A figure that links to the items it counts.
ButtonBase {
    id: link

    property alias value: figure.value
    property alias title: figure.title

    height: figure.implicitHeight
    text: figure.Accessible.name
    Accessible.role: Accessible.Link

    background: Rectangle {
        radius: Theme.radiusBox - Theme.hairlineWidth
        color: link.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
    }

    StatView {
        id: figure

        width: parent.width
        ruled: true
        Accessible.ignored: true
    }
    // Distinguishes it from a figure without a link.
    Icon {
        anchors.right: parent.right
        anchors.rightMargin: Theme.boxPadding
        anchors.verticalCenter: parent.verticalCenter
        name: "caret-right"
        weight: "bold"
        color: link.hovered ? Theme.t2 : Theme.t3
        size: Theme.caretSize
    }
}
