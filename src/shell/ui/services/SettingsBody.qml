import QtQuick
import Corvane.Shell
import Corvane.Services

/// The sections of the settings.
FocusScope {
    id: body

    required property SettingsPresenter settings

    signal privacyPolicyWanted
    signal closeWanted

    implicitHeight: column.height
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("Settings")
    Keys.onEscapePressed: body.closeWanted()

    Column {
        id: column

        x: Theme.pageMargin
        width: parent.width - 2 * x
        topPadding: Theme.space8
        bottomPadding: Theme.space24

        UpdateSettingsSection {
            width: parent.width
            settings: body.settings
        }
        CrashSettingsSection {
            width: parent.width
            settings: body.settings
            onPrivacyPolicyWanted: body.privacyPolicyWanted()
        }
        SettingsSection {
            width: parent.width
            title: qsTr("Setup")

            SettingsRow {
                width: parent.width
                label: body.settings.accessTitle
                tag: body.settings.accessStatus
                tagTone: body.settings.granted ? "ok" : "warning"

                PushButton {
                    objectName: "settings.welcome"
                    text: qsTr("Welcome & Permissions…")
                    small: true
                    onClicked: body.settings.showWelcome()
                }
            }
        }
        SettingsSection {
            width: parent.width
            title: qsTr("Help")

            SettingsRow {
                width: parent.width
                label: qsTr("Questions, bugs or ideas")

                PushButton {
                    objectName: "settings.feedback"
                    text: qsTr("Send Feedback…")
                    small: true
                    onClicked: body.settings.sendFeedback()
                }
            }
        }
    }
}
