import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A thin scroll bar, visible while the list moves or the pointer is over the bar.
T.ScrollBar {
    id: bar

    implicitWidth: Theme.scrollBarWidth
    implicitHeight: Theme.scrollBarWidth
    hoverEnabled: true
    padding: (Theme.scrollBarWidth - Theme.scrollThumbWidth) / 2
    visible: policy !== T.ScrollBar.AlwaysOff && size < 1
    minimumSize: orientation === Qt.Horizontal ? height / Math.max(1, width) * 2 : width / Math.max(1, height) * 2
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: Theme.scrollThumbWidth
        implicitHeight: Theme.scrollThumbWidth
        radius: Math.min(width, height) / 2
        color: Theme.withAlpha(Theme.t3, bar.pressed || bar.hovered ? Theme.disabledPlainOpacity : Theme.protectedOpacity)
        opacity: bar.policy === T.ScrollBar.AlwaysOn || bar.active || bar.hovered ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.baseDuration
            }
        }
    }
}
