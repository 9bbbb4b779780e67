import QtQuick
import Corvane.Shell

/// A text link.
ButtonBase {
    id: control

    property bool small: false

    implicitHeight: small ? Theme.secondaryLine : Theme.bodyLine
    cornerRadius: Theme.radiusFrame
    font: small ? Theme.secondaryMediumFont : Theme.bodyMediumFont

    contentItem: PlainText {
        text: control.text
        font.family: control.font.family
        font.pixelSize: control.font.pixelSize
        font.weight: control.font.weight
        font.letterSpacing: control.font.letterSpacing
        font.underline: control.hovered
        color: Theme.accentText
    }
}
