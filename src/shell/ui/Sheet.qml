pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Corvane.Shell

/// A modal panel over the whole window. Escape cancels. While it is open, Tab stays inside; on close the focus returns
/// to where it was.
T.Popup {
    id: sheet

    /// The accessible name of the sheet.
    required property string title
    /// Whether it covers another sheet, which is then dimmed less.
    property bool nested: false

    /// Closed without an answer: by Escape or by close().
    signal cancelled

    property real rise: 0
    property Item focusBefore: null
    property bool settled: false

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round(Math.max(Theme.space12, parent.height * Theme.sheetCentre - height / 2) + rise) : 0
    implicitWidth: implicitContentWidth
    implicitHeight: implicitContentHeight
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    /// Closes the sheet for an answer other than cancelling.
    function settle() {
        settled = true;
        sheet.close();
    }

    onAboutToShow: {
        settled = false;
        focusBefore = sheet.parent ? sheet.parent.Window.activeFocusItem : null;
    }
    onAboutToHide: if (!settled) sheet.cancelled()
    onClosed: {
        // The answer may have disabled the control that opened the sheet; focus the one before it in that case.
        const target = focusBefore && !focusBefore.enabled ? focusBefore.nextItemInFocusChain(false) : focusBefore;
        if (target)
            target.forceActiveFocus(Qt.PopupFocusReason);
        focusBefore = null;
    }

    T.Overlay.modal: Rectangle {
        color: sheet.nested ? Theme.scrimNested : Theme.scrim

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.motion(Theme.panelDuration)
            }
        }
    }
    background: Panel {
        elevation: 3
        radius: Theme.radiusSheet
    }
    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.reducedMotion ? Theme.fastDuration : Theme.panelDuration
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            property: "rise"
            from: Theme.reducedMotion ? 0 : Theme.sheetRise
            to: 0
            duration: Theme.motion(Theme.panelDuration)
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.fastDuration
        }
    }
}
