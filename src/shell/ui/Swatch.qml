import QtQuick
import Corvane.Shell

/// The colour that an item has in a bar.
Rectangle {
    implicitWidth: Theme.swatchSize
    implicitHeight: Theme.swatchSize
    radius: Theme.radiusLeaf
    Accessible.ignored: true
}
