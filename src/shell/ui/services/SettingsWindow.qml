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

    /// Shows it, in front of the main window.
    function open() {
        window.show();
        window.raise();
        window.requestActivate();
    }

    SettingsBody {
        id: body

        anchors.fill: parent
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
