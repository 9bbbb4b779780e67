import QtQuick
import Corvane.Shell
import Corvane.Services

/// The content of the welcome sheet.
FocusScope {
    id: body

    required property OnboardingPresenter onboarding

    signal done

    implicitHeight: column.height + footer.height
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: body.onboarding.title
    Keys.onReturnPressed: footer.defaultButton.clicked()
    Keys.onEnterPressed: footer.defaultButton.clicked()

    function focusDefault() {
        footer.defaultButton.forceActiveFocus(Qt.TabFocusReason);
    }

    // The default button may have changed.
    Connections {
        target: body.onboarding
        enabled: body.onboarding.visible

        function onAccessChanged() {
            body.focusDefault();
        }
    }
    Column {
        id: column

        width: parent.width
        topPadding: ServicesMetrics.welcomeTop
        bottomPadding: Theme.space20

        AppIcon {
            anchors.horizontalCenter: parent.horizontalCenter
            size: ServicesMetrics.welcomeIconSize
        }
        Item {
            width: parent.width
            height: Theme.space12
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.title1Line
            text: body.onboarding.title
            font: Theme.title1Font
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            height: Theme.bodyLine
            text: body.onboarding.welcomeLine
            color: Theme.t2
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Column {
            x: ServicesMetrics.featuresInset
            width: parent.width - 2 * x
            topPadding: Theme.space16
            bottomPadding: Theme.space20
            spacing: Theme.space12

            WelcomeFeature {
                width: parent.width
                symbol: "square.grid.2x2"
                title: qsTr("Map every byte")
                line: qsTr("An interactive map of your folders and files.")
            }
            WelcomeFeature {
                width: parent.width
                symbol: "sparkles"
                title: qsTr("Find the junk")
                line: qsTr("Caches, build folders, duplicates and forgotten big files.")
            }
            WelcomeFeature {
                width: parent.width
                symbol: "arrow.uturn.backward.circle"
                title: qsTr("Safe by default")
                line: qsTr("Items go to the Trash, and system files are protected.")
            }
        }
        PermissionCard {
            x: Theme.space24
            width: parent.width - 2 * x
            onboarding: body.onboarding
        }
    }
    WelcomeFooter {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        onboarding: body.onboarding
        onDone: body.done()
    }
}
