import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// The line between two groups of a menu.
T.MenuSeparator {
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.hairlineWidth + topPadding + bottomPadding
    horizontalPadding: Theme.space10
    verticalPadding: Theme.menuPadding
    Accessible.role: Accessible.Separator

    contentItem: Rectangle {
        implicitHeight: Theme.hairlineWidth
        color: Theme.hairline
    }
}
