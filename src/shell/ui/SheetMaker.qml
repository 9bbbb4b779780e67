import QtQuick
import Corvane.Shell

/// Makes a sheet when it is first opened, so that a start without it does not take longer.
Item {
    id: maker

    /// Of the sheet.
    required property Component component

    readonly property bool open: sheet !== null && sheet.visible
    property Sheet sheet: null

    function show() {
        if (sheet === null)
            sheet = maker.component.createObject(maker) as Sheet;
        sheet.open();
    }
}
