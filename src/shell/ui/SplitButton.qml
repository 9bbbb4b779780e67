import QtQuick
import Corvane.Shell

/// A button for the default action and, on its right, a menu of the alternatives.
FocusScope {
    id: split

    property alias text: main.text
    property string iconName
    property string symbol
    property bool primary: false
    /// The accessible name of the menu.
    required property string menuName
    /// Opened below the button.
    required property AppMenu menu
    property string tip
    /// The object names of the two buttons.
    property alias buttonName: main.objectName
    property alias menuButtonName: more.objectName

    signal clicked

    readonly property color inkColor: primary ? Theme.onFill : Theme.t1
    readonly property bool hasIcon: iconName !== "" || symbol !== ""

    implicitWidth: main.implicitWidth + rule.width + more.width + 2 * Theme.hairlineWidth
    implicitHeight: Theme.controlHeight
    opacity: enabled ? 1 : primary ? Theme.disabledOpacity : Theme.disabledPlainOpacity

    function openMenu() {
        menu.popup(split, split.width - menu.width, split.height + Theme.space4);
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radiusControl
        color: split.primary ? Theme.accentFill : Theme.control
        border.width: split.primary ? 0 : Theme.hairlineWidth
        border.color: Theme.controlBorder
    }
    ButtonBase {
        id: main

        x: Theme.hairlineWidth
        height: split.height
        focus: true
        leftPadding: split.hasIcon ? Theme.space10 - Theme.hairlineWidth : Theme.pillPadding
        rightPadding: split.hasIcon ? Theme.bandIconGap : Theme.pillPadding
        Accessible.description: split.tip
        onClicked: split.clicked()

        background: SplitButtonGround {
            roundedSide: Qt.LeftEdge
            primary: split.primary
            hovered: main.hovered
            down: main.down
        }
        contentItem: ButtonLabel {
            text: main.text
            font: main.font
            color: split.inkColor
            iconName: split.iconName
            symbol: split.symbol
        }

        Tip {
            text: split.tip
            pointed: main.hovered
            focused: main.visualFocus
        }
    }
    Rectangle {
        id: rule

        anchors.left: main.right
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.hairlineWidth
        height: Theme.splitRuleHeight
        color: split.primary ? Theme.onFillRule : Theme.controlBorder
    }
    ButtonBase {
        id: more

        anchors.left: rule.right
        height: split.height
        width: Theme.caretSize + 2 * Theme.space8
        Accessible.role: Accessible.ButtonMenu
        Accessible.name: split.menuName
        Keys.onDownPressed: split.openMenu()
        onClicked: split.openMenu()

        background: SplitButtonGround {
            roundedSide: Qt.RightEdge
            primary: split.primary
            hovered: more.hovered
            down: more.down || split.menu.visible
        }

        Icon {
            anchors.centerIn: parent
            name: "caret-down"
            weight: "bold"
            color: split.primary ? Theme.onFill : Theme.t2
            size: Theme.caretSize
        }
    }
}
