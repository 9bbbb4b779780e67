import QtQuick
import Corvane.Shell
import Corvane.Updates

/// What comes of a check for updates. Opens by itself.
Sheet {
    id: sheet

    property alias updater: updates.updater
    /// While true it does not open: something else has the user's attention.
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
