import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Corvane.Shell
import Corvane.Window

/// One screen in the sidebar, below its section's title if it is the first of the section. Only the chosen row
/// can be reached with Tab; the list moves the choice.
T.Control {
    id: row

    required property int index
    required property string key
    required property string title
    required property string symbol
    required property string section
    required property bool startsSection
    required property bool current

    signal chosen(row: int)

    readonly property bool highlighted: current && Window.active

    objectName: "sidebar." + key
    implicitHeight: header.height + ground.height + WindowMetrics.rowGap
    focusPolicy: current ? Qt.TabFocus : Qt.NoFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: title
    Accessible.selectable: true
    Accessible.selected: current
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: row.chosen(row.index)

    PlainText {
        id: header

        readonly property int above: row.index === 0 ? WindowMetrics.firstSectionAbove : WindowMetrics.sectionAbove

        x: WindowMetrics.sectionInset
        width: row.width - x
        height: row.startsSection ? above + Theme.captionLine + WindowMetrics.sectionBelow : 0
        topPadding: above
        verticalAlignment: Text.AlignTop
        visible: row.startsSection
        text: row.section
        font: Theme.captionSemiboldFont
        color: Theme.t3
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Rectangle {
        id: ground

        y: header.height
        width: row.width
        height: Theme.sidebarRowHeight
        radius: Theme.radiusControl
        color: {
            if (row.current)
                return row.highlighted ? Theme.accentSoft : Theme.fillq;
            if (tap.pressed)
                return Theme.accentSoft;
            return hover.hovered ? Theme.fillq : Theme.withAlpha(Theme.fillq, 0);
        }

        Icon {
            x: WindowMetrics.sectionInset
            anchors.verticalCenter: parent.verticalCenter
            symbol: row.symbol
            weight: row.current ? "fill" : ""
            color: row.highlighted ? Theme.accentText : Theme.t2
        }
        PlainText {
            x: WindowMetrics.rowTextLeft
            width: parent.width - x - Theme.space8
            height: parent.height
            text: row.title
            font: row.current ? Theme.bodySemiboldFont : Theme.bodyFont
        }
        FocusRing {
            around: ground.radius
            visible: row.visualFocus
        }
        HoverHandler {
            id: hover
        }
        TapHandler {
            id: tap

            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: row.chosen(row.index)
        }
    }
}
