import QtQuick
import Corvane.Shell

/// Creates a sheet when it is first opened, which keeps it out of the startup time.
Item {
    id: maker

    /// The sheet's component.
    required property Component component

    readonly property bool open: sheet !== null && sheet.visible
    property Sheet sheet: null

    function show() {
        if (sheet === null)
            sheet = maker.component.createObject(maker) as Sheet;
        sheet.open();
    }
}
