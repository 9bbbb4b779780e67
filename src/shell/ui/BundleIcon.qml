import QtQuick
import QtQuick.Window
import Corvane.Shell

/// The icon of an application, by the key that C++ makes for its bundle. Loaded asynchronously; its space is reserved
/// until then. Not accessible: the label beside it names the application.
Image {
    id: icon

    required property string iconKey
    property int size: Theme.bundleIconSize
    readonly property int pixels: Math.round(size * Screen.devicePixelRatio)

    width: size
    height: size
    asynchronous: true
    source: iconKey === "" ? "" : "image://bundle/" + (Theme.dark ? "dark/" : "") + iconKey
    sourceSize.width: pixels
    sourceSize.height: pixels
    Accessible.ignored: true
}
