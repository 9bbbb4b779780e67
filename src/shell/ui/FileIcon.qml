import QtQuick
import QtQuick.Window
import Corvane.Shell

/// The icon of a file or folder, by the key that C++ makes for it. Not accessible: the label beside it names the item.
Image {
    id: icon

    required property string iconKey
    property int size: Theme.fileIconSize
    readonly property int pixels: Math.round(size * Screen.devicePixelRatio)

    width: size
    height: size
    source: iconKey === "" ? "" : "image://file/" + iconKey
    sourceSize.width: pixels
    sourceSize.height: pixels
    Accessible.ignored: true
}
