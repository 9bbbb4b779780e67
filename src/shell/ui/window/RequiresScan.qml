pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Shell
import Corvane.Window

/// A screen. One that needs a scan has to wait for it: until there is one, what it would show and the way there;
/// during one, how far it has come; then the screen.
Item {
    id: view

    required property bool needed
    required property string title
    required property string symbol
    required property string prompt
    required property string promptTitle
    required property Component screen

    readonly property bool waiting: needed && !scan.hasScan

    ScanPresenter {
        id: scan

        store: Store
    }
    Loader {
        anchors.fill: parent
        sourceComponent: view.waiting ? null : view.screen
    }
    // A Repeater because the Loader of Qt 6.4 makes no component that refers to what surrounds it.
    Repeater {
        model: view.waiting ? 1 : 0

        delegate: WaitingForScan {
            anchors.fill: parent
            scan: scan
            title: view.title
            symbol: view.symbol
            prompt: view.prompt
            promptTitle: view.promptTitle
        }
    }
}
