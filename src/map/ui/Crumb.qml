import QtQuick
import Corvane.Shell
import Corvane.Map

/// One folder of the current path, with the caret that separates it from its parent.
Row {
    id: crumb

    required property int index
    required property string name
    required property string icon
    required property bool current
    required property bool collapsed
    required property bool ellipsisBefore
    required property real crumbWidth
    required property BreadcrumbModel crumbs

    signal menuWanted(Item place)

    spacing: MapMetrics.crumbSpacing
    visible: !collapsed

    EllipsisCrumb {
        description: crumb.crumbs.collapsedText
        visible: crumb.ellipsisBefore
        onMenuWanted: place => crumb.menuWanted(place)
    }
    Icon {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.compact.right"
        color: Theme.t3
        size: MapMetrics.crumbCaretSize
        visible: crumb.index > 0
    }
    ButtonBase {
        id: button

        anchors.verticalCenter: parent.verticalCenter
        implicitHeight: MapMetrics.crumbHeight
        width: crumb.crumbWidth
        cornerRadius: Theme.radiusSmallControl
        horizontalPadding: MapMetrics.crumbPadding
        text: crumb.name
        font: crumb.current ? Theme.bodySemiboldFont : Theme.bodyFont
        onClicked: crumb.crumbs.open(crumb.index)

        background: Rectangle {
            radius: button.cornerRadius
            color: button.hovered && !crumb.current ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0)
        }
        contentItem: Item {
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                name: crumb.icon
                color: Theme.t2
                size: MapMetrics.rootIconSize
            }
            PlainText {
                x: crumb.icon === "" ? 0 : MapMetrics.rootIconSize + MapMetrics.rootIconGap
                width: parent.width - x
                height: parent.height
                text: crumb.name
                font: button.font
                color: crumb.current ? Theme.t1 : Theme.t2
                elide: Text.ElideMiddle
            }
        }
    }
}
