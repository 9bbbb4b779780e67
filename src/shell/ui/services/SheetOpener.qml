import QtQuick
import Corvane.Shell

/// Opens a sheet when it is wanted, as soon as no other sheet blocks it, and closes it when it is no longer wanted.
SheetMaker {
    id: opener

    required property bool wanted
    /// Another sheet is open. Does not close this one if it is already open.
    required property bool blocked

    readonly property bool due: wanted && !blocked

    onDueChanged: if (due) opener.show()
    onWantedChanged: {
        if (!wanted && sheet !== null)
            sheet.settle();
    }
}
