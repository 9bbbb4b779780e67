import QtQuick
import Corvane.Shell
import Corvane.Services

/// The buttons of the welcome sheet.
SheetFooter {
    id: footer

    required property OnboardingPresenter onboarding
    /// The button that Return presses.
    readonly property PushButton defaultButton: !onboarding.hasSettings ? start : onboarding.granted ? skip : open

    signal done

    apart: PushButton {
        id: skip

        objectName: "welcome.skip"
        text: qsTr("Skip for Now")
        primary: footer.onboarding.granted
        visible: footer.onboarding.hasSettings
        onClicked: footer.done()
    }

    PushButton {
        id: open

        objectName: "welcome.openSettings"
        text: qsTr("Open System Settings")
        symbol: "gearshape"
        primary: !footer.onboarding.granted
        visible: footer.onboarding.hasSettings
        onClicked: footer.onboarding.openSettings()
    }
    PushButton {
        id: start

        objectName: "welcome.start"
        text: qsTr("Get Started")
        primary: true
        visible: !footer.onboarding.hasSettings
        onClicked: footer.done()
    }
}
