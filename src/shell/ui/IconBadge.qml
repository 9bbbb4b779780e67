import QtQuick
import Corvane.Shell

/// A symbol on a tile of its own colour.
Rectangle {
    id: badge

    property string symbol
    property string iconName
    property color tint: Theme.accentText
    /// A white symbol on the full colour, darkened until white has enough contrast.
    property bool solid: false
    property int size: solid ? Theme.solidBadgeSize : Theme.badgeSize
    property int iconSize: size >= Theme.largeBadgeSize ? Theme.largeBadgeIconSize
        : size <= Theme.smallBadgeSize ? Theme.iconSize : Theme.badgeIconSize

    implicitWidth: size
    implicitHeight: size
    radius: size / 4
    color: solid ? Theme.solidFill(tint) : Theme.withAlpha(tint, Theme.badgeOpacity)
    Accessible.ignored: true

    Icon {
        anchors.centerIn: parent
        name: badge.iconName
        symbol: badge.symbol
        color: badge.solid ? Theme.onFill : badge.tint
        size: badge.iconSize
    }
}
