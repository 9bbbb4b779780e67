import QtQuick
import Corvane.Shell
import Corvane.Services

/// What to do with crash reports.
SettingsSection {
    id: section

    required property SettingsPresenter settings

    signal privacyPolicyWanted

    title: qsTr("Crash Reports")

    SettingsRow {
        width: parent.width
        label: qsTr("When Corvane crashes")

        PopupButton {
            objectName: "settings.crashChoice"
            width: ServicesMetrics.settingsChoiceWidth
            accessibleName: qsTr("When Corvane crashes")
            model: section.settings.crashChoices
            currentIndex: section.settings.crashChoice
            onActivated: index => section.settings.crashChoice = index
        }
    }
    Item {
        width: parent.width
        height: explanation.y + explanation.height + Theme.space6 + policy.height + Theme.space12

        Rectangle {
            width: parent.width
            height: Theme.hairlineWidth
            color: Theme.hairline2
        }
        PlainText {
            id: explanation

            x: Theme.space14
            y: Theme.hairlineWidth + Theme.space10
            width: parent.width - 2 * x
            text: section.settings.crashExplanation
            font: Theme.secondaryFont
            color: Theme.t2
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeightMode: Text.FixedHeight
            lineHeight: Theme.secondaryLine
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        LinkButton {
            id: policy

            objectName: "settings.privacy"
            anchors.left: explanation.left
            anchors.top: explanation.bottom
            anchors.topMargin: Theme.space6
            implicitHeight: Theme.bodyLine
            text: qsTr("Privacy Policy")
            small: true
            onClicked: section.privacyPolicyWanted()
        }
    }
}
