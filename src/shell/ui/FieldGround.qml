import QtQuick
import Corvane.Shell

/// What is behind text that can be edited.
Rectangle {
    radius: Theme.radiusControl
    color: Theme.control
    border.width: Theme.hairlineWidth
    border.color: Theme.controlBorder
}
