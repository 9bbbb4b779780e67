pragma ComponentBehavior: Bound

import QtQuick
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
    /// How much of the view lies beneath the selection bar, at its bottom.
    required property real coveredHeight
    /// Whether the screen leaves room for the bar by itself.
    required property bool goesBeneathBar

    readonly property bool waiting: needed && !presenter.hasScan
    // Of any type; not every screen has questions.
    readonly property var shownScreen: loader.item
    /// The screen has a sheet open.
    readonly property bool asking: shownScreen?.asking ?? false

    ScanPresenter {
        id: presenter
    }
    Loader {
        id: loader

        anchors.fill: parent
        anchors.bottomMargin: view.goesBeneathBar ? 0 : view.coveredHeight
        sourceComponent: view.waiting ? null : view.screen
    }
    // A Repeater because the Loader of Qt 6.4 makes no component that refers to what surrounds it.
    Repeater {
        model: view.waiting ? 1 : 0

        delegate: WaitingForScan {
            anchors.fill: parent
            anchors.bottomMargin: view.coveredHeight
            scan: presenter
            title: view.title
            symbol: view.symbol
            prompt: view.prompt
            promptTitle: view.promptTitle
        }
    }
}
