import QtQuick
import Corvane.Shell

/// The box drawn by everything that can be checked.
Rectangle {
    id: box

    /// Qt.Unchecked, Qt.PartiallyChecked or Qt.Checked.
    required property int checkState
    /// Whether the owner has the keyboard focus.
    required property bool ringed

    readonly property bool marked: checkState !== Qt.Unchecked

    implicitWidth: Theme.checkBoxSize
    implicitHeight: Theme.checkBoxSize
    radius: Theme.radiusFrame
    color: marked ? Theme.accentFill : Theme.control
    border.width: marked ? 0 : Theme.hairlineWidth
    border.color: Theme.checkOutline

    Icon {
        anchors.centerIn: parent
        name: box.checkState === Qt.PartiallyChecked ? "minus" : "check"
        weight: "bold"
        color: Theme.onFill
        size: Theme.checkIconSize
        opacity: box.marked ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.baseDuration
                easing.type: Easing.OutCubic
            }
        }
    }
    FocusRing {
        around: Theme.radiusFrame
        visible: box.ringed
    }
}
