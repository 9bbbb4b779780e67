import QtQuick
import Corvane.Shell

/// Shown when a screen has nothing to list: the reason, and what to do about it. Fills its parent.
Item {
    id: view

    required property string symbol
    required property string title
    property string message
    /// The button's text; empty for no button.
    property string actionText
    /// The object name of the button.
    property alias actionName: action.objectName

    signal activated

    Column {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.emptyStateRise
        width: Math.min(parent.width - 2 * Theme.pageMargin, Theme.emptyStateWidth)

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            symbol: view.symbol
            weight: "light"
            color: Theme.t3
            size: Theme.emptyStateIconSize
        }
        Item {
            width: parent.width
            height: Theme.space14
        }
        PlainText {
            width: parent.width
            height: Theme.title2Line
            text: view.title
            font: Theme.title2Font
            horizontalAlignment: Text.AlignHCenter
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Item {
            width: parent.width
            height: Theme.space4
            visible: message.visible
        }
        PlainText {
            id: message

            width: parent.width
            text: view.message
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.bodyLine
            horizontalAlignment: Text.AlignHCenter
            visible: text !== ""
        }
        Item {
            width: parent.width
            height: Theme.space16
            visible: action.visible
        }
        PillButton {
            id: action

            anchors.horizontalCenter: parent.horizontalCenter
            filled: true
            text: view.actionText
            visible: text !== ""
            onClicked: view.activated()
        }
    }
}
