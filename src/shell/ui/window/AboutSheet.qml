import QtQuick
import Corvane.Shell
import Corvane.Window

/// The program's name and version.
Sheet {
    id: sheet

    objectName: "about"
    title: qsTr("About %1").arg(Qt.application.name)
    width: WindowMetrics.aboutWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()

    AboutBody {
        id: body

        anchors.fill: parent
        title: sheet.title
        onDone: sheet.close()
    }
}
