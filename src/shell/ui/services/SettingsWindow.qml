import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Services

/// The settings, in a separate window.
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

    // The initial position; the user can move it.
    Component.onCompleted: {
        x = transientParent.x + (transientParent.width - width) / 2;
        y = transientParent.y + (transientParent.height - height) / 2;
    }

    /// Shows the window in front of the main window.
    function open() {
        window.show();
        // On other systems the active window is in front anyway.
        if (Qt.platform.os === "osx")
            window.raise();
        window.requestActivate();
        body.forceActiveFocus();
    }

    SettingsBody {
        id: body

        // The content item has no width until the window is shown, but the height is needed before that.
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

        // This window would cover what the main window shows.
        function onMainWindowWanted() {
            window.close();
            window.transientParent.requestActivate();
        }
    }
}
