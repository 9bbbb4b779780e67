import QtQuick
import Corvane.Shell

/// Opens a sheet while something wants it, as soon as no other sheet is in its way, and closes it when nothing wants it
/// any more.
SheetMaker {
    id: opener

    required property bool wanted
    /// Another sheet is in the way; the one that is open stays open.
    required property bool blocked

    readonly property bool due: wanted && !blocked

    onDueChanged: if (due) opener.show()
    onWantedChanged: {
        if (!wanted && sheet !== null)
            sheet.settle();
    }
}
