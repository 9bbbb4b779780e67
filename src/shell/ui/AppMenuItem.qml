import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// One command of a menu.
T.MenuItem {
    id: item

    /// The command's keyboard shortcut.
    property var keys: action ? action.shortcut : ""

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Theme.menuRowHeight
    horizontalPadding: Theme.space10
    hoverEnabled: true
    font: Theme.bodyFont

    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: {
        item.triggered();
        if (item.menu)
            item.menu.dismiss();
    }

    contentItem: MenuRow {
        text: item.text
        detail: KeyText.text(item.keys)
        markable: item.checkable
        marked: item.checked
        opensMenu: item.subMenu !== null
        highlighted: item.highlighted && item.enabled
        active: item.enabled
    }
    background: MenuHighlight {
        highlighted: item.highlighted && item.enabled
    }
}
