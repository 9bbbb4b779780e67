import QtQuick
import Corvane.Shell
import Corvane.Window

/// The scan commands on the right of every screen's header.
FocusScope {
    id: toolbar

    implicitWidth: scan.scanning ? stop.implicitWidth : split.implicitWidth
    implicitHeight: Theme.controlHeight

    ScanPresenter {
        id: scan

        // Moves the focus to the button that replaces the other.
        onStateChanged: {
            if (toolbar.activeFocus && scan.scanning)
                stop.forceActiveFocus(Qt.OtherFocusReason);
            else if (toolbar.activeFocus)
                split.forceActiveFocus(Qt.OtherFocusReason);
        }
    }
    SplitButton {
        id: split

        buttonName: "scanButton"
        menuButtonName: "scanMenuButton"
        visible: !scan.scanning
        focus: true
        text: scan.scanTitle
        symbol: scan.scanSymbol
        primary: !scan.hasScan
        tip: scan.scanHelp
        menuName: qsTr("More ways to scan")
        onClicked: scan.scan()
        menu: AppMenu {
            AppMenuItem {
                objectName: "scanMenu.home"
                text: qsTr("Scan Home Folder")
                onTriggered: scan.scanHome()
            }
            AppMenuItem {
                objectName: "scanMenu.disk"
                text: qsTr("Scan Entire Disk")
                onTriggered: scan.scanEntireDisk()
            }
            AppMenuItem {
                objectName: "scanMenu.choose"
                text: qsTr("Choose Folder…")
                onTriggered: scan.chooseFolder()
            }
        }
    }
    PushButton {
        id: stop

        objectName: "stopScanButton"
        visible: scan.scanning
        text: qsTr("Stop Scan")
        symbol: "stop.circle"
        Accessible.description: tip.text
        onClicked: scan.stop()

        Tip {
            id: tip

            text: scan.stopHelp
            pointed: stop.hovered
            focused: stop.visualFocus
        }
    }
}
