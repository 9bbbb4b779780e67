pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Corvane.Shell

/// One icon in one colour, by its own name or by a symbol's name. Decorative: the control that contains it has the
/// accessible name.
Image {
    id: icon

    property string name
    property string symbol
    /// "regular", "fill", "bold" or "light"; empty for the symbol's default.
    property string weight
    property color color: Theme.t1
    property int size: Theme.iconSize
    readonly property int pixels: Math.round(size * Screen.devicePixelRatio)

    width: size
    height: size
    visible: name !== "" || symbol !== ""
    source: {
        // #AARRGGBB without the hash, always eight digits even for opaque colours.
        const plain = icon.color.toString().slice(1);
        const tint = plain.length === 6 ? "ff" + plain : plain;
        if (icon.symbol !== "")
            return "image://symbol/" + icon.symbol + "/" + (icon.weight || "rest") + "/" + tint;
        return icon.name === "" ? "" : "image://icon/" + icon.name + "/" + (icon.weight || "regular") + "/" + tint;
    }
    sourceSize.width: pixels
    sourceSize.height: pixels
    Accessible.ignored: true
}
