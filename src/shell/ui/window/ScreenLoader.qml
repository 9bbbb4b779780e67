import QtQuick
import Corvane.Shell
import Corvane.Window

/// The selected screen, created anew each time it is selected, with a fade.
Item {
    id: view

    required property SidebarModel screens
    /// The height of the view that the selection bar covers, at its bottom.
    required property real coveredHeight
    /// Whether the screen has a sheet open.
    readonly property bool asking: screen.asking

    function show() {
        if (screen.screen === view.screens.content)
            return;
        screen.screen = null;
        screen.screen = view.screens.content;
        fade.restart();
    }

    Component.onCompleted: show()

    RequiresScan {
        id: screen

        anchors.fill: parent
        layer.enabled: fade.running
        needed: view.screens.needsScan
        coveredHeight: view.coveredHeight
        goesBeneathBar: view.screens.goesBeneathBar
        title: view.screens.title
        symbol: view.screens.symbol
        prompt: view.screens.scanPrompt
        promptTitle: view.screens.scanTitle
        screen: null
    }
    NumberAnimation {
        id: fade

        target: screen
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.baseDuration
        easing.type: Easing.OutCubic
    }
    Connections {
        target: view.screens

        function onCurrentChanged() {
            view.show();
        }
    }
}
