import QtQuick
import QtQuick.Templates as T
import Corvane.Shell

/// A multi-line text box, which scrolls if the text does not fit. Tab moves the focus out of it.
FocusScope {
    id: box

    property alias text: area.text
    property alias placeholderText: hint.text
    property alias readOnly: area.readOnly
    /// The purpose of the field.
    required property string accessibleName

    signal edited
    /// Ctrl+Return; Return alone inserts a line break.
    signal submitted

    implicitWidth: Theme.menuMinimumWidth
    implicitHeight: Theme.bodyLine + 2 * (Theme.space6 + Theme.hairlineWidth)
    opacity: enabled ? 1 : Theme.disabledPlainOpacity

    function leave(forward: bool) {
        area.nextItemInFocusChain(forward).forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    function submit(event: KeyEvent) {
        event.accepted = (event.modifiers & Qt.ControlModifier) !== 0;
        if (event.accepted)
            box.submitted();
    }

    FieldGround {
        anchors.fill: parent
    }
    Flickable {
        id: view

        anchors.fill: parent
        anchors.margins: Theme.hairlineWidth
        contentHeight: area.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        T.ScrollBar.vertical: AppScrollBar {}
        T.TextArea.flickable: T.TextArea {
            id: area

            topPadding: Theme.space6
            bottomPadding: Theme.space6
            leftPadding: Theme.smallControlPadding
            rightPadding: Theme.smallControlPadding
            implicitHeight: contentHeight + topPadding + bottomPadding
            focus: true
            activeFocusOnTab: true
            font: Theme.withEmoji(Theme.bodyFont)
            color: Theme.t1
            selectionColor: Theme.accentFill
            selectedTextColor: Theme.onFill
            selectByMouse: true
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            Accessible.role: Accessible.EditableText
            Accessible.name: box.accessibleName
            Accessible.multiLine: true
            onTextChanged: box.edited()
            Keys.onTabPressed: box.leave(true)
            Keys.onBacktabPressed: box.leave(false)
            Keys.onReturnPressed: event => box.submit(event)
            Keys.onEnterPressed: event => box.submit(event)
        }
    }
    PlainText {
        id: hint

        x: area.leftPadding + Theme.hairlineWidth
        y: area.topPadding + Theme.hairlineWidth
        width: box.width - 2 * x
        color: Theme.t3
        visible: area.length === 0 && area.preeditText === ""
    }
    FocusRing {
        around: Theme.radiusControl
        visible: area.activeFocus
    }
}
