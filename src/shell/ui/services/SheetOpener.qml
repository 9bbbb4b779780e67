import QtQuick
import Corvane.Shell

/// Opens a sheet while something wants it, as soon as no other sheet is in its way, and closes it when nothing wants it
/// any more. The sheet is made when it is first opened, so that a start without it does not take longer.
Item {
    id: opener

    /// Of the sheet.
    required property Component component
    required property bool wanted
    /// Another sheet is in the way; the one that is open stays open.
    required property bool blocked

    readonly property bool due: wanted && !blocked
    readonly property bool open: sheet !== null && sheet.visible
    property Sheet sheet: null

    onDueChanged: {
        if (due && sheet === null)
            sheet = opener.component.createObject(opener) as Sheet;
        if (due)
            sheet.open();
    }
    onWantedChanged: {
        if (!wanted && sheet !== null)
            sheet.settle();
    }
}
