import QtQuick
import QtQuick.Window
import Corvane.Shell
import Corvane.Services

/// The sheets of the services, one at a time, and the settings window.
Item {
    id: sheets

    /// Another sheet of the window is open.
    required property bool blocked

    readonly property bool asking: welcome.visible || crash.visible || feedback.visible
    readonly property bool shown: Window.visibility !== Window.Hidden

    signal privacyPolicyWanted

    function openSettings() {
        settings.open();
    }

    OnboardingPresenter {
        id: onboarding

        store: Store
        defaults: Services.defaults
    }
    FeedbackPresenter {
        id: feedbackForm

        store: Store
        api: Services.api
    }
    SettingsPresenter {
        id: settingsChoices

        objectName: "settingsPresenter"
        store: Store
        defaults: Services.defaults
        api: Services.api
        updater: Services.updater
    }

    WelcomeSheet {
        id: welcome

        onboarding: onboarding
    }
    SheetOpener {
        sheet: welcome
        wanted: onboarding.wanted
        blocked: sheets.blocked || !sheets.shown || crash.visible || feedback.visible
    }
    CrashPrompt {
        id: crash

        onConfirmed: Services.crashReporter.sendPending(false)
        onOtherChosen: Services.crashReporter.sendPending(true)
        onCancelled: Services.crashReporter.showPrompt = false
    }
    SheetOpener {
        sheet: crash
        wanted: Services.crashReporter.showPrompt
        blocked: sheets.blocked || !sheets.shown || welcome.visible || onboarding.wanted || feedback.visible
    }
    FeedbackSheet {
        id: feedback

        feedback: feedbackForm
    }
    SheetOpener {
        sheet: feedback
        wanted: feedbackForm.wanted
        blocked: sheets.blocked || !sheets.shown || welcome.visible || onboarding.wanted || crash.visible
    }
    SettingsWindow {
        id: settings

        settings: settingsChoices
        transientParent: sheets.Window.window
        onPrivacyPolicyWanted: sheets.privacyPolicyWanted()
    }
}
