import QtQuick
import Corvane.Shell

/// The content of an alert: icon, question, explanation and buttons.
FocusScope {
    id: body

    required property string title
    required property string message
    required property string detail
    required property string confirmText
    required property string cancelText
    required property string otherText
    required property bool destructive
    required property bool cautious
    required property string iconKey
    /// The object names of the buttons.
    property alias cancelName: cancelButton.objectName
    property alias confirmName: confirmButton.objectName
    property alias otherName: otherButton.objectName

    readonly property PushButton defaultButton: cautious ? cancelButton : confirmButton

    signal confirmed
    signal otherChosen
    signal cancelled

    implicitHeight: words.height + buttons.height
    focus: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: title
    Accessible.description: detail === "" ? message : detail + ". " + message

    // Return chooses the default answer, whichever control has the focus.
    Keys.onReturnPressed: defaultButton.clicked()
    Keys.onEnterPressed: defaultButton.clicked()

    function focusDefault() {
        defaultButton.forceActiveFocus(Qt.TabFocusReason);
    }

    Item {
        id: words

        width: parent.width
        height: Math.max(icon.height, text.y + text.height - icon.y) + Theme.space20 + Theme.space20

        Item {
            id: icon

            x: Theme.space24
            y: Theme.space20 + Theme.space2
            width: appIcon.visible ? appIcon.width : sign.width
            height: width

            // The sign's glyph is a hole in its shape.
            Rectangle {
                anchors.centerIn: sign
                width: Math.round(sign.width * 0.3)
                height: Math.round(sign.height * 0.5)
                color: Theme.onFill
                visible: sign.visible
            }
            Icon {
                id: sign

                name: body.destructive ? "warning-octagon" : "info"
                weight: "fill"
                color: body.destructive ? Theme.dangerFill : Theme.accentFill
                size: Theme.alertIconSize
                visible: !appIcon.visible
            }
            BundleIcon {
                id: appIcon

                iconKey: body.iconKey
                size: Theme.alertBundleIconSize
                visible: iconKey !== ""
            }
        }
        PlainText {
            id: heading

            anchors.left: icon.right
            anchors.right: parent.right
            anchors.leftMargin: Theme.space16
            anchors.rightMargin: Theme.space24
            y: icon.y
            height: Math.max(Theme.title2Line, implicitHeight)
            text: body.title
            font: Theme.title2Font
            wrapMode: Text.Wrap
            elide: Text.ElideNone
        }
        PlainText {
            id: detail

            anchors.left: heading.left
            anchors.right: heading.right
            anchors.top: heading.bottom
            anchors.topMargin: Theme.space4
            visible: body.detail !== ""
            text: body.detail
            wrapMode: Text.Wrap
            maximumLineCount: 4
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.bodyLine
        }
        PlainText {
            id: text

            anchors.left: heading.left
            anchors.right: heading.right
            anchors.top: detail.visible ? detail.bottom : heading.bottom
            anchors.topMargin: Theme.space4
            text: body.message
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.bodyLine
        }
    }
    Row {
        id: buttons

        anchors.top: words.bottom
        anchors.right: parent.right
        anchors.rightMargin: Theme.space20
        height: Theme.controlHeight + Theme.space14
        spacing: Theme.buttonGap

        PushButton {
            id: otherButton

            text: body.otherText
            visible: body.otherText !== ""
            onClicked: body.otherChosen()
        }
        PushButton {
            id: cancelButton

            text: body.cancelText
            onClicked: body.cancelled()
        }
        PushButton {
            id: confirmButton

            text: body.confirmText
            danger: body.destructive
            primary: !body.destructive
            // An accidental extra Return must not trigger an action that cannot be undone.
            returnPresses: !body.destructive
            onClicked: body.confirmed()
        }
    }
}
