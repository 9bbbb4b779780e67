import QtQuick
import Corvane.Shell

/// The background of editable text.
Rectangle {
    radius: Theme.radiusControl
    color: Theme.control
    border.width: Theme.hairlineWidth
    border.color: Theme.controlBorder
}
