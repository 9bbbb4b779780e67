import QtQuick
import Corvane.Shell
import Corvane.Services

/// The purpose of the program and the access it needs: the first thing that a user sees.
Sheet {
    id: sheet

    required property OnboardingPresenter onboarding

    objectName: "welcome"
    title: sheet.onboarding.title
    width: ServicesMetrics.welcomeWidth
    height: body.implicitHeight
    onOpened: body.focusDefault()
    onAboutToHide: sheet.onboarding.dismiss()

    WelcomeBody {
        id: body

        anchors.fill: parent
        onboarding: sheet.onboarding
        onDone: sheet.close()
    }
    Binding {
        target: sheet.onboarding
        property: "visible"
        value: sheet.visible
    }
}
