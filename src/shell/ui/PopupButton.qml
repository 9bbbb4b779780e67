pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// Shows the current choice and offers the others in a menu.
T.ComboBox {
    id: control

    /// What is being chosen, for screen readers, which do not see the label beside it.
    required property string accessibleName
    readonly property real widest: {
        let result = 0;
        for (let row = 0; row < count; ++row)
            result = Math.max(result, metrics.advanceWidth(textAt(row)));
        return Math.ceil(result);
    }

    implicitWidth: widest + leftPadding + rightPadding
    implicitHeight: Theme.controlHeight
    leftPadding: Theme.hairlineWidth + Theme.space10
    rightPadding: Theme.hairlineWidth + Theme.smallControlPadding + Theme.caretSize + Theme.space6
    font: Theme.bodyFont
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : Theme.disabledPlainOpacity

    Accessible.role: Accessible.ComboBox
    Accessible.name: accessibleName
    Accessible.description: displayText
    Accessible.onPressAction: control.popup.open()
    // Return opens the list on key release: the template handles the release of Return in an open list by closing it
    // with the highlighted row.
    Keys.onReleased: event => {
        event.accepted = !popup.visible && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
        if (event.accepted)
            popup.open();
    }

    FontMetrics {
        id: metrics

        font: control.font
    }

    background: Rectangle {
        radius: Theme.radiusControl
        color: control.down ? Theme.hairline : control.hovered ? Theme.controlHover : Theme.control
        border.width: Theme.hairlineWidth
        border.color: Theme.controlBorder
    }
    contentItem: PlainText {
        text: control.displayText
        font: control.font
    }
    indicator: Icon {
        x: control.width - width - Theme.hairlineWidth - Theme.smallControlPadding
        y: (control.height - height) / 2
        name: "caret-up-down"
        weight: "bold"
        color: Theme.t3
        size: Theme.caretSize
    }
    delegate: PopupRow {
        width: ListView.view ? ListView.view.width : 0
        text: control.textAt(index)
        marked: control.currentIndex === index
        highlighted: control.highlightedIndex === index
    }
    popup: PopupList {
        y: control.height + Theme.space4
        width: Math.max(control.width, control.widest + rowRoom)
        model: control.delegateModel
        currentIndex: control.highlightedIndex
    }

    FocusRing {
        around: Theme.radiusControl
        visible: control.visualFocus
    }
}
