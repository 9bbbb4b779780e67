import QtQuick
import Corvane.Shell
import Corvane.Updates

/// The result of an update check. Opens by itself.
Sheet {
    id: sheet

    /// Prevents opening while something else needs the user's attention.
    property bool held: false

    readonly property bool wanted: updates.open && !held

    objectName: "update"
    title: updates.title
    width: Theme.alertWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()
    onCancelled: updates.dismiss()
    onWantedChanged: {
        if (wanted)
            sheet.open();
        else
            sheet.settle();
    }

    UpdatePresenter {
        id: updates
    }
    UpdateBody {
        id: body

        anchors.fill: parent
        updates: updates
    }
}
