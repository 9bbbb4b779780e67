import QtQuick
import Corvane.Shell
import Corvane.Window

/// The progress of the running scan.
Rectangle {
    id: card

    required property ScanPresenter scan
    property string title: scan.heading
    /// The object name of the button.
    property alias stopName: stop.objectName

    implicitHeight: path.y + path.height + Theme.secondaryLine + Theme.boxPadding + Theme.hairlineWidth
    radius: Theme.radiusBox
    color: Theme.surface
    border.width: Theme.hairlineWidth
    border.color: Theme.hairline

    PlainText {
        id: heading

        anchors.left: bar.left
        anchors.right: stop.left
        anchors.rightMargin: Theme.space12
        anchors.verticalCenter: stop.verticalCenter
        text: card.title
        font: Theme.title2Font
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PushButton {
        id: stop

        objectName: "requiresScan.stop"
        anchors.right: bar.right
        y: Theme.hairlineWidth + Theme.space14
        text: qsTr("Stop")
        symbol: "stop.circle"
        Accessible.description: card.scan.stopHelp
        onClicked: card.scan.stop()
    }
    IndeterminateBar {
        id: bar

        x: Theme.hairlineWidth + Theme.boxPadding
        y: stop.y + stop.height + Theme.space12
        width: parent.width - 2 * x
        accessibleName: card.title
    }
    ScanFigure {
        id: files

        anchors.left: bar.left
        anchors.top: bar.bottom
        anchors.topMargin: Theme.space16
        value: card.scan.filesCounted
        title: qsTr("Files counted")
    }
    ScanFigure {
        id: space

        anchors.left: files.right
        anchors.top: files.top
        value: card.scan.spaceFound
        title: qsTr("Space found")
    }
    PlainText {
        id: path

        anchors.left: space.right
        anchors.right: bar.right
        anchors.top: files.top
        height: Theme.figureLine
        text: card.scan.currentPath
        elide: Text.ElideMiddle
    }
    PlainText {
        anchors.left: path.left
        anchors.top: path.bottom
        height: Theme.secondaryLine
        text: qsTr("Now looking in")
        font: Theme.secondaryFont
        color: Theme.t2
    }
}
