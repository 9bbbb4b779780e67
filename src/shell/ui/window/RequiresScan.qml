pragma ComponentBehavior: Bound

import QtQuick
import Corvane.Window

/// A screen that may need a scan. Without one, explains what the screen would show and offers a scan; during one, shows
/// its progress; afterwards, shows the screen.
Item {
    id: view

    required property bool needed
    required property string title
    required property string symbol
    required property string prompt
    required property string promptTitle
    required property Component screen
    /// The height of the view that the selection bar covers, at its bottom.
    required property real coveredHeight
    /// Whether the screen itself leaves room for the bar.
    required property bool goesBeneathBar

    readonly property bool waiting: needed && !presenter.hasScan
    // Of any type; not every screen has an `asking` property.
    readonly property var shownScreen: loader.item
    /// Whether the screen has a sheet open.
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
    // A Repeater, because the Loader of Qt 6.4 cannot create a component that refers to outer ids.
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
