pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell
import Corvane.Map

/// Stands for the folders in the middle of a way that is too long: a menu of them.
Row {
    id: ellipsis

    required property BreadcrumbModel crumbs

    spacing: MapMetrics.crumbSpacing

    Icon {
        anchors.verticalCenter: parent.verticalCenter
        name: "caret-right"
        color: Theme.t3
        size: MapMetrics.crumbCaretSize
    }
    ButtonBase {
        id: button

        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: MapMetrics.crumbHeight
        cornerRadius: Theme.radiusSmallControl
        horizontalPadding: MapMetrics.crumbPadding
        text: "…"
        font: Theme.bodyFont
        onClicked: menu.popup(button, 0, button.height)

        Accessible.role: Accessible.ButtonMenu
        Accessible.name: ellipsis.crumbs.collapsedText

        background: Rectangle {
            radius: button.cornerRadius
            color: button.hovered || menu.visible ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
        }
        contentItem: PlainText {
            text: button.text
            color: Theme.t2
        }
    }
    AppMenu {
        id: menu

        objectName: "collapsedMenu"

        Instantiator {
            model: ellipsis.crumbs.collapsedNames
            delegate: AppMenuItem {
                required property int index
                required property string modelData

                text: modelData
                onTriggered: ellipsis.crumbs.openCollapsed(index)
            }
            onObjectAdded: (index, object) => menu.insertItem(index, object as T.MenuItem)
            onObjectRemoved: (index, object) => menu.removeItem(object as T.MenuItem)
        }
    }
}
