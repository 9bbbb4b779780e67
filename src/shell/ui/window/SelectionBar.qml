import QtQuick
import Corvane.Shell
import Corvane.Window

/// The items selected for removal, in a bar along the bottom of the detail area. Slides in with the first item and out
/// with the last.
FocusScope {
    id: bar

    required property SelectionPresenter selection

    signal reviewWanted

    /// The height that the bar covers. Changes to its full value at the start of the slide-in, and to 0 at the start of
    /// the slide-out.
    readonly property int takenHeight: shown ? height : 0
    property real hiddenPart: shown ? 0 : 1
    readonly property bool shown: !selection.empty

    objectName: "selectionBar"
    height: Theme.selectionBarHeight
    visible: hiddenPart < 1
    Accessible.role: Accessible.Pane
    Accessible.name: bar.selection.reviewTitle

    transform: Translate {
        y: Theme.reducedMotion ? 0 : bar.hiddenPart * bar.height
    }
    opacity: Theme.reducedMotion ? 1 - hiddenPart : 1

    Behavior on hiddenPart {
        NumberAnimation {
            duration: Theme.reducedMotion ? Theme.fastDuration : Theme.panelDuration
            easing.type: Easing.OutCubic
        }
    }

    Rectangle {
        anchors.bottom: parent.top
        width: parent.width
        height: WindowMetrics.selectionShadow
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.withAlpha(Theme.scrim, 0)
            }
            GradientStop {
                position: 1
                color: Theme.withAlpha(Theme.scrim, WindowMetrics.selectionShadowOpacity)
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.raised
    }
    // Blocks the pointer from the screen below.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: event => event.accepted = true
    }
    Rectangle {
        width: parent.width
        height: Theme.hairlineWidth
        color: Theme.hairline
    }
    Column {
        anchors.left: parent.left
        anchors.leftMargin: Theme.pageMargin
        anchors.right: buttons.left
        anchors.rightMargin: Theme.space16
        anchors.verticalCenter: parent.verticalCenter

        PlainText {
            width: parent.width
            height: Theme.bodyLine
            text: bar.selection.countText
            font: Theme.bodySemiboldFont
        }
        PlainText {
            width: parent.width
            height: Theme.secondaryLine
            text: bar.selection.totalText
            font: Theme.secondaryFiguresFont
            color: Theme.t2
        }
        PlainText {
            objectName: "selectionBar.trashNote"
            width: parent.width
            height: Theme.captionLine
            visible: text !== ""
            text: bar.selection.trashNote
            font: Theme.captionFont
            color: Theme.dangerText
        }
    }
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.buttonGap

        PushButton {
            objectName: "reviewButton"
            text: qsTr("Review")
            enabled: bar.selection.canRemove
            onClicked: bar.reviewWanted()
        }
        PushButton {
            objectName: "clearButton"
            text: qsTr("Clear")
            visible: !bar.selection.removing
            enabled: bar.selection.canRemove
            onClicked: bar.selection.clear()
        }
        PushButton {
            objectName: "stopRemovalButton"
            text: bar.selection.stopTitle
            visible: bar.selection.removing
            enabled: bar.selection.canStop
            onClicked: bar.selection.stop()
        }
        PushButton {
            objectName: "moveToTrashButton"
            text: bar.selection.trashTitle
            symbol: "trash"
            primary: true
            busy: bar.selection.removing
            enabled: bar.selection.canRemove
            onClicked: bar.selection.moveToTrash()
        }
    }
}
