import QtQuick
import Corvane.Shell
import Corvane.Services

/// Whether and how to check for updates.
SettingsSection {
    id: section

    required property SettingsPresenter settings

    title: qsTr("Updates")

    SettingsRow {
        width: parent.width
        label: qsTr("Check for updates automatically")
        visible: section.settings.canUpdate

        ToggleSwitch {
            objectName: "settings.checks"
            accessibleName: qsTr("Check for updates automatically")
            checked: section.settings.checksAutomatically
            onToggled: section.settings.checksAutomatically = checked
        }
    }
    SettingsRow {
        width: parent.width
        label: section.settings.installsText
        ruled: true
        visible: section.settings.canUpdate

        ToggleSwitch {
            objectName: "settings.installs"
            accessibleName: section.settings.installsText
            checked: section.settings.installsAutomatically
            onToggled: section.settings.installsAutomatically = checked
        }
    }
    SettingsRow {
        width: parent.width
        label: qsTr("Updates are turned off in this development build.")
        visible: !section.settings.canUpdate
    }
    SettingsRow {
        width: parent.width
        label: section.settings.versionText
        remark: true
        ruled: true

        PushButton {
            objectName: "settings.checkNow"
            text: qsTr("Check for Updates…")
            small: true
            enabled: section.settings.canCheckNow
            visible: section.settings.canUpdate
            onClicked: section.settings.checkForUpdates()
        }
    }
}
