import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Services

/// The settings, in a window of their own.
Window {
    id: window

    required property SettingsPresenter settings
    required transientParent

    signal privacyPolicyWanted

    objectName: "settings"
    title: qsTr("Settings")
    flags: Qt.Dialog
    width: ServicesMetrics.settingsWidth
    height: body.implicitHeight
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    color: Theme.window

    // Where it is first seen; the user may move it.
    Component.onCompleted: {
        x = transientParent.x + (transientParent.width - width) / 2;
        y = transientParent.y + (transientParent.height - height) / 2;
    }

    /// Shows it, in front of the main window.
    function open() {
        window.show();
        // Elsewhere the active window is in front.
        if (Qt.platform.os === "osx")
            window.raise();
        window.requestActivate();
        body.forceActiveFocus();
    }

    SettingsBody {
        id: body

        // The window's own content has no size before it is shown, and the height must be known by then.
        width: window.width
        settings: window.settings
        onPrivacyPolicyWanted: window.privacyPolicyWanted()
        onCloseWanted: window.close()
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: window.close()
    }
    Binding {
        target: window.settings
        property: "visible"
        value: window.visible
    }
    Connections {
        target: window.settings

        // This window would lie over what the main window shows.
        function onMainWindowWanted() {
            window.close();
            window.transientParent.requestActivate();
        }
    }
}
