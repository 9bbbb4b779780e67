import QtQuick
import QtQuick.Window
import Corvane.Shell

/// The program's own icon.
Image {
    id: icon

    property int size: Theme.appIconSize
    readonly property int pixels: Math.round(size * Screen.devicePixelRatio)

    width: size
    height: size
    source: "image://app/icon"
    sourceSize.width: pixels
    sourceSize.height: pixels
    Accessible.ignored: true
}
